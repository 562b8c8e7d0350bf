// Writes the objects of a PDF file.
import { join } from "./ttf";

const latin = (text: string): Uint8Array => Uint8Array.from(text, (character) => character.charCodeAt(0) & 255);

export async function deflated(bytes: Uint8Array): Promise<Uint8Array> {
  const stream = new Blob([bytes as Uint8Array<ArrayBuffer>]).stream().pipeThrough(new CompressionStream("deflate"));
  return new Uint8Array(await new Response(stream).arrayBuffer());
}

export class PdfFile {
  private readonly parts: Uint8Array[] = [];
  private readonly offsets: number[] = [];
  private length = 0;
  private reserved = 0;

  constructor() {
    this.write("%PDF-1.6\n%\u00e2\u00e3\u00cf\u00d3\n");
  }

  /** The number of an object that is written later. */
  reserve(): number {
    return ++this.reserved;
  }

  put(number: number, body: string): void {
    this.offsets[number] = this.length;
    this.write(`${number} 0 obj\n${body}\nendobj\n`);
  }

  add(body: string): number {
    const number = this.reserve();
    this.put(number, body);
    return number;
  }

  async addStream(bytes: Uint8Array, entries = ""): Promise<number> {
    const packed = await deflated(bytes),
      number = this.reserve();
    this.offsets[number] = this.length;
    this.write(`${number} 0 obj\n<< /Length ${packed.length} /Filter /FlateDecode ${entries}>>\nstream\n`);
    this.parts.push(packed);
    this.length += packed.length;
    this.write("\nendstream\nendobj\n");
    return number;
  }

  finish(root: number, info: number): Uint8Array {
    const start = this.length,
      count = this.reserved + 1;
    this.write(`xref\n0 ${count}\n0000000000 65535 f \n`);
    for (let i = 1; i < count; ++i) this.write(`${String(this.offsets[i]!).padStart(10, "0")} 00000 n \n`);
    this.write(`trailer\n<< /Size ${count} /Root ${root} 0 R /Info ${info} 0 R >>\nstartxref\n${start}\n%%EOF\n`);
    return join(this.parts);
  }

  private write(text: string): void {
    const bytes = latin(text);
    this.parts.push(bytes);
    this.length += bytes.length;
  }
}

/** A text string of PDF, in UTF-16. */
export function pdfText(text: string): string {
  let hex = "FEFF";
  for (let i = 0; i < text.length; ++i) hex += text.charCodeAt(i).toString(16).padStart(4, "0");
  return `<${hex}>`;
}
