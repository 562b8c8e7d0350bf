// Draws a sheet by WebGL 2. A view of few strokes is drawn at once. A view of many is drawn into a picture, in slices
// that take less than a frame each; until it is finished, the last finished picture is shown at its place.
import { pictureFragment, pictureVertex, strokeFragment, strokeVertex } from "./gl_shaders";
import { instanceBytes } from "./instances";
import type { Instances } from "./instances";
import type { Look, Renderer } from "./renderer";
import { screenPixel } from "./sheet";
import type { Viewport } from "./viewport";
import { countOf, runsIn, takeRecords } from "./visible";
import type { Run } from "./visible";

interface Picture {
  frame: WebGLFramebuffer;
  texture: WebGLTexture;
  /** What it shows; null if nothing. */
  view: Viewport | null;
}

interface Job {
  view: Viewport;
  runs: Run[];
  look: string;
}

interface Timing {
  sync: WebGLSync;
  count: number;
  start: number;
}

type Uniforms = { [name: string]: WebGLUniformLocation | null };

const leastSlice = 4000;
const mostSlice = 1 << 23;

export class GlRenderer implements Renderer {
  readonly name = "WebGL 2";
  finished = 0;
  private readonly gl: WebGL2RenderingContext;
  private strokes!: WebGLProgram;
  private pictures!: WebGLProgram;
  private strokeUniforms: Uniforms = {};
  private pictureUniforms: Uniforms = {};
  private buffer: WebGLBuffer | null = null;
  private instances: Instances | null = null;
  private shown: Picture | null = null;
  private made: Picture | null = null;
  private job: Job | null = null;
  private timing: Timing | null = null;
  private lookShown = "";
  /** How many records are drawn in less than a frame: measured. */
  private slice = 40000;

  /** Null if the browser has no WebGL 2, or one without a graphics card.
   * @param emulated  whether it may be without */
  static create(canvas: HTMLCanvasElement, emulated: boolean): GlRenderer | null {
    if (!emulated && isEmulated()) return null;
    const gl = canvas.getContext("webgl2", {
      alpha: false,
      antialias: false,
      depth: false,
      powerPreference: "low-power",
    });
    return gl ? new GlRenderer(canvas, gl) : null;
  }

  private constructor(
    private readonly canvas: HTMLCanvasElement,
    gl: WebGL2RenderingContext,
  ) {
    this.gl = gl;
    this.start();
    canvas.addEventListener("webglcontextlost", (event) => event.preventDefault());
    canvas.addEventListener("webglcontextrestored", () => this.start());
  }

  setInstances(instances: Instances | null): void {
    this.instances = instances;
    this.forget();
    this.upload();
  }

  draw(view: Viewport, density: number, look: Look): boolean {
    if (this.gl.isContextLost()) return true;
    this.resize(view, density);
    this.learn();
    const runs = runsIn(this.instances, view),
      count = countOf(runs);
    if (count <= this.slice) {
      this.job = null;
      this.paint(null, view, density, look, runs, true);
      this.time(count);
      ++this.finished;
      return true;
    }
    return this.drawInSlices(view, density, look, runs);
  }

  // Setting up.

  private start(): void {
    const { gl } = this;
    this.strokes = program(gl, strokeVertex, strokeFragment);
    this.pictures = program(gl, pictureVertex, pictureFragment);
    const find = (owner: WebGLProgram, names: string[]): Uniforms =>
      Object.fromEntries(names.map((name) => [name, gl.getUniformLocation(owner, name)]));
    this.strokeUniforms = find(this.strokes, ["originWhole", "originRest", "size", "scale", "leastHalf", "dashPixel"]);
    this.pictureUniforms = find(this.pictures, ["place", "picture"]);
    this.shown = this.made = null;
    this.timing = null;
    this.buffer = gl.createBuffer();
    this.upload();
  }

  private upload(): void {
    const { gl } = this;
    gl.bindBuffer(gl.ARRAY_BUFFER, this.buffer);
    gl.bufferData(gl.ARRAY_BUFFER, this.instances?.bytes ?? new Uint8Array(4), gl.STATIC_DRAW);
  }

  private forget(): void {
    this.job = null;
    if (this.shown) this.shown.view = null;
  }

  private resize(view: Viewport, density: number): void {
    const width = Math.max(1, Math.round(view.width * density)),
      height = Math.max(1, Math.round(view.height * density));
    if (this.canvas.width === width && this.canvas.height === height) return;
    this.canvas.width = width;
    this.canvas.height = height;
    for (const picture of [this.shown, this.made]) {
      if (!picture) continue;
      this.gl.deleteTexture(picture.texture);
      this.gl.deleteFramebuffer(picture.frame);
    }
    this.shown = this.made = this.job = null;
  }

  private newPicture(): Picture {
    const { gl } = this;
    const texture = gl.createTexture()!,
      frame = gl.createFramebuffer()!;
    gl.bindTexture(gl.TEXTURE_2D, texture);
    gl.texStorage2D(gl.TEXTURE_2D, 1, gl.RGBA8, this.canvas.width, this.canvas.height);
    gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MIN_FILTER, gl.LINEAR);
    gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_S, gl.CLAMP_TO_EDGE);
    gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_T, gl.CLAMP_TO_EDGE);
    gl.bindFramebuffer(gl.FRAMEBUFFER, frame);
    gl.framebufferTexture2D(gl.FRAMEBUFFER, gl.COLOR_ATTACHMENT0, gl.TEXTURE_2D, texture, 0);
    return { frame, texture, view: null };
  }

  // Slices.

  private drawInSlices(view: Viewport, density: number, look: Look, runs: Run[]): boolean {
    const key = JSON.stringify(look);
    this.shown ??= this.newPicture();
    this.made ??= this.newPicture();
    const isSharp = (): boolean => this.lookShown === key && this.shown?.view?.equals(view) === true;
    if (!isSharp() && !this.timing) {
      if (!this.job || this.job.look !== key) this.job = this.begin(view, density, look, runs, key);
      this.drawSlice(density, look);
    }
    this.show(view, density, look);
    return isSharp();
  }

  private begin(view: Viewport, density: number, look: Look, runs: Run[], key: string): Job {
    this.paint(this.made!, view, density, look, [], true);
    return { view: view.copy(), runs: runs.map((run) => ({ ...run })), look: key };
  }

  private drawSlice(density: number, look: Look): void {
    const job = this.job!,
      taken = takeRecords(job.runs, this.slice);
    this.paint(this.made!, job.view, density, look, taken, false);
    this.time(countOf(taken));
    if (job.runs.length > 0) return;
    this.made!.view = job.view;
    [this.shown, this.made] = [this.made, this.shown];
    this.lookShown = job.look;
    ++this.finished;
    this.job = null;
  }

  /** Shows the last finished picture where its part of the sheet is now. */
  private show(view: Viewport, density: number, look: Look): void {
    const { gl } = this,
      picture = this.shown!,
      old = picture.view;
    this.paint(null, view, density, look, [], true);
    if (!old) return;
    const from = view.toScreen({ x: old.x, y: old.y });
    const width = (old.width / old.scale) * view.scale,
      height = (old.height / old.scale) * view.scale;
    const across = (x: number): number => (x / view.width) * 2 - 1,
      down = (y: number): number => 1 - (y / view.height) * 2;
    gl.useProgram(this.pictures);
    gl.uniform4f(
      this.pictureUniforms["place"]!,
      across(from.x),
      down(from.y + height),
      across(from.x + width),
      down(from.y),
    );
    gl.bindTexture(gl.TEXTURE_2D, picture.texture);
    const nearest = old.scale === view.scale;
    gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MAG_FILTER, nearest ? gl.NEAREST : gl.LINEAR);
    gl.disable(gl.BLEND);
    gl.drawArrays(gl.TRIANGLE_STRIP, 0, 4);
  }

  // Time: the card works beside the page, so a fence says when it was done.

  private time(count: number): void {
    const { gl } = this;
    if (this.timing || count === 0) return;
    const sync = gl.fenceSync(gl.SYNC_GPU_COMMANDS_COMPLETE, 0);
    if (sync) this.timing = { sync, count, start: performance.now() };
    gl.flush();
  }

  private learn(): void {
    const { gl, timing } = this;
    if (!timing || gl.getSyncParameter(timing.sync, gl.SYNC_STATUS) !== gl.SIGNALED) return;
    gl.deleteSync(timing.sync);
    this.timing = null;
    const took = performance.now() - timing.start,
      quick = 22,
      slow = 40;
    if (took < quick && timing.count > this.slice / 2) this.slice = Math.min(mostSlice, Math.round(this.slice * 1.4));
    if (took > slow && timing.count > leastSlice) this.slice = Math.max(leastSlice, Math.round(timing.count * 0.6));
  }

  // Drawing.

  private paint(to: Picture | null, view: Viewport, density: number, look: Look, runs: Run[], clear: boolean): void {
    const { gl } = this;
    gl.bindFramebuffer(gl.FRAMEBUFFER, to?.frame ?? null);
    gl.viewport(0, 0, this.canvas.width, this.canvas.height);
    if (clear) this.clear(view, density, look);
    if (runs.length === 0) return;
    gl.useProgram(this.strokes);
    this.setView(view, density);
    gl.enable(gl.BLEND);
    gl.blendFunc(gl.SRC_ALPHA, gl.ONE_MINUS_SRC_ALPHA);
    gl.bindBuffer(gl.ARRAY_BUFFER, this.buffer);
    for (let index = 0; index < 3; ++index) {
      gl.enableVertexAttribArray(index);
      gl.vertexAttribDivisor(index, 1);
    }
    for (const run of runs) this.drawRun(run);
    for (let index = 0; index < 3; ++index) gl.disableVertexAttribArray(index);
  }

  private drawRun(run: Run): void {
    const { gl } = this,
      start = run.first * instanceBytes;
    gl.vertexAttribPointer(0, 4, gl.FLOAT, false, instanceBytes, start);
    gl.vertexAttribPointer(1, 2, gl.FLOAT, false, instanceBytes, start + 16);
    gl.vertexAttribPointer(2, 4, gl.UNSIGNED_BYTE, true, instanceBytes, start + 24);
    gl.drawArraysInstanced(gl.TRIANGLE_STRIP, 0, 4, run.count);
  }

  private setView(view: Viewport, density: number): void {
    const { gl, strokeUniforms: at } = this,
      scale = view.scale * density;
    // Two numbers of single precision for each coordinate keep deep zooms steady.
    const wholeX = Math.round(view.x),
      wholeY = Math.round(view.y);
    gl.uniform2f(at["originWhole"]!, wholeX, wholeY);
    gl.uniform2f(at["originRest"]!, view.x - wholeX, view.y - wholeY);
    gl.uniform2f(at["size"]!, this.canvas.width, this.canvas.height);
    gl.uniform1f(at["scale"]!, scale);
    gl.uniform1f(at["leastHalf"]!, Math.max(0.5, density * 0.4));
    gl.uniform1f(at["dashPixel"]!, Math.max(1, screenPixel * scale));
  }

  private clear(view: Viewport, density: number, look: Look): void {
    const { gl } = this;
    gl.disable(gl.SCISSOR_TEST);
    setClearColor(gl, look.around);
    gl.clear(gl.COLOR_BUFFER_BIT);
    const { left, top, right, bottom } = look.frame;
    const from = view.toScreen({ x: left, y: top }),
      to = view.toScreen({ x: right, y: bottom });
    const limit = (value: number, most: number): number =>
      Math.round(Math.max(-2, Math.min(most + 2, value * density)));
    const x0 = limit(from.x, this.canvas.width),
      x1 = limit(to.x, this.canvas.width);
    const y0 = limit(from.y, this.canvas.height),
      y1 = limit(to.y, this.canvas.height);
    if (x1 <= x0 || y1 <= y0) return;
    gl.enable(gl.SCISSOR_TEST);
    gl.scissor(x0, this.canvas.height - y1, x1 - x0, y1 - y0);
    setClearColor(gl, look.paper);
    gl.clear(gl.COLOR_BUFFER_BIT);
    gl.disable(gl.SCISSOR_TEST);
  }
}

/** Whether the processor does the work of the graphics card. */
function isEmulated(): boolean {
  const gl = document.createElement("canvas").getContext("webgl2", { failIfMajorPerformanceCaveat: true });
  if (!gl) return true;
  const info = gl.getExtension("WEBGL_debug_renderer_info");
  const name = String(gl.getParameter(info ? info.UNMASKED_RENDERER_WEBGL : gl.RENDERER));
  gl.getExtension("WEBGL_lose_context")?.loseContext();
  return /swiftshader|llvmpipe|softpipe|software|basic render/i.test(name);
}

function setClearColor(gl: WebGL2RenderingContext, color: number): void {
  gl.clearColor(((color >> 16) & 255) / 255, ((color >> 8) & 255) / 255, (color & 255) / 255, 1);
}

function program(gl: WebGL2RenderingContext, vertex: string, fragment: string): WebGLProgram {
  const made = gl.createProgram();
  for (const [type, source] of [
    [gl.VERTEX_SHADER, vertex],
    [gl.FRAGMENT_SHADER, fragment],
  ] as const) {
    const shader = gl.createShader(type)!;
    gl.shaderSource(shader, source);
    gl.compileShader(shader);
    gl.attachShader(made, shader);
  }
  gl.linkProgram(made);
  if (!gl.getProgramParameter(made, gl.LINK_STATUS) && !gl.isContextLost()) {
    throw new Error(gl.getProgramInfoLog(made) ?? "the graphics card refused a program");
  }
  return made;
}
