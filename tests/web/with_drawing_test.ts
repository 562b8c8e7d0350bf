// Copies of the viewer with a drawing in them: web/with_drawing.mjs.
import assert from "node:assert/strict";
import { execFileSync, spawnSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import path from "node:path";
import test from "node:test";

const folder = process.env.HEXLUME_WEB ?? "build/web";
const program = "web/with_drawing.mjs";

function inScratch(use: (scratch: string) => void): void {
  const scratch = mkdtempSync(path.join(tmpdir(), "hexlume-"));
  try {
    use(scratch);
  } finally {
    rmSync(scratch, { recursive: true });
  }
}

test("a copy has the drawing's bytes and its name, and all of the viewer", () =>
  inScratch((scratch) => {
    const drawing = path.join(scratch, `図面 "A" & <B> $&.dxf`);
    const bytes = Buffer.from(Array.from({ length: 1000 }, (_, i) => i % 256));
    writeFileSync(drawing, bytes);
    execFileSync("node", [program, `${folder}/hexlume-viewer.html`, drawing, path.join(scratch, "copy.html")]);
    const copy = readFileSync(path.join(scratch, "copy.html"), "utf8");
    const found = /<script type="application\/octet-stream" id="drawing" data-name="([^"]*)">([^<]*)<\/script>/.exec(copy);
    assert.ok(found);
    assert.equal(found[1], "図面 &quot;A&quot; &amp; &lt;B> $&amp;.dxf");
    assert.deepEqual(Buffer.from(found[2] ?? "", "base64"), bytes);
    const viewer = readFileSync(`${folder}/hexlume-viewer.html`, "utf8");
    assert.equal(copy.replace(found[0], () => "<!--DRAWING-->"), viewer);
  }));

test("a page without a place for it is refused", () =>
  inScratch((scratch) => {
    const page = path.join(scratch, "page.html");
    writeFileSync(page, "<html></html>");
    const run = spawnSync("node", [program, page, "examples/FIRST.dxf", path.join(scratch, "copy.html")]);
    assert.notEqual(run.status, 0);
    assert.match(String(run.stderr), /has no place for a drawing/);
  }));

test("the viewer is one file below 6 MB that asks for no other", () => {
  const viewer = readFileSync(`${folder}/hexlume-viewer.html`, "utf8");
  assert.ok(Buffer.byteLength(viewer) < 6e6);
  const page = viewer.replace(/<script[\s\S]*?<\/script>/g, "").replace(/<style[\s\S]*?<\/style>/g, "");
  assert.doesNotMatch(page, /(src|href)="(?!data:)/);
});

test("the licences of what is in the viewer are in it", () => {
  const notices = readFileSync(`${folder}/fonts/notices.txt`, "utf8");
  for (const part of ["MIT License", "IPA Font License Agreement v1.0", "The FreeType Project LICENSE", "pixman", "musl", "LLVM"])
    assert.ok(notices.includes(part), part);
});
