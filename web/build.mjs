// Bundles the viewer into one HTML file.
//
//   node web/build.mjs ASSETS.json OUTPUT.html
import { build } from "esbuild";
import { mkdir, readFile, writeFile } from "node:fs/promises";
import path from "node:path";
import { fileURLToPath } from "node:url";

const folder = path.dirname(fileURLToPath(import.meta.url));
const common = {
  bundle: true,
  write: false,
  minify: true,
  format: "iife",
  target: "es2022",
  legalComments: "none",
  charset: "utf8",
};

// A worker is bundled by itself; its text becomes a string of the page.
const workers = {
  name: "workers",
  setup(builder) {
    builder.onResolve({ filter: /^worker:/ }, (file) => ({
      path: path.resolve(file.resolveDir, file.path.slice("worker:".length)),
      namespace: "worker",
    }));
    builder.onLoad({ filter: /.*/, namespace: "worker" }, async (file) => {
      const { outputFiles } = await build({ ...common, entryPoints: [file.path] });
      return { contents: outputFiles[0].text, loader: "text" };
    });
  },
};

// A text within a script element must not end it.
const inScript = (text) => text.replace(/<\/(script)/gi, "<\\/$1").replace(/<!--/g, "<\\!--");

/** @param plugins  more plugins of esbuild */
export async function buildPage(assets, output, plugins = []) {
  const { outputFiles } = await build({
    ...common,
    entryPoints: [path.join(folder, "viewer/main.ts")],
    plugins: [...plugins, workers],
  });
  const style = await build({ ...common, entryPoints: [path.join(folder, "viewer/viewer.css")], format: undefined });
  const parts = {
    "/*STYLE*/": style.outputFiles[0].text.trim(),
    "<!--ASSETS-->": `<script type="application/json" id="assets">${inScript(await readFile(assets, "utf8"))}</script>`,
    "/*SCRIPT*/": inScript(outputFiles[0].text),
  };
  let page = await readFile(path.join(folder, "viewer/viewer.html"), "utf8");
  for (const [mark, text] of Object.entries(parts)) page = page.split(mark).join(text);
  await mkdir(path.dirname(output), { recursive: true });
  await writeFile(output, page);
  return { page: page.length, script: outputFiles[0].text.length };
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const [assets, output] = process.argv.slice(2);
  if (!assets || !output) {
    console.error("usage: node web/build.mjs ASSETS.json OUTPUT.html");
    process.exit(64);
  }
  const sizes = await buildPage(assets, output);
  console.log(`${output}: ${sizes.page} bytes, ${sizes.script} of them script`);
}
