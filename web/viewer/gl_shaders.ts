// The programs of the graphics card.

/** A record becomes a quadrilateral of four corners. Lines are widened by a pixel for soft edges. */
export const strokeVertex = `#version 300 es
precision highp float;
layout(location = 0) in vec4 ends;
layout(location = 1) in vec2 more;
layout(location = 2) in vec4 colorAndShape;
uniform vec2 originWhole, originRest, size;
uniform float scale, leastHalf;
flat out vec4 color;
flat out vec4 line;
out vec2 at;

vec2 pixels(vec2 place) { return ((place - originWhole) - originRest) * scale; }

// Keeps the numbers small where a long line is seen from near: only the part in the window is drawn.
void shorten(inout vec2 from, inout vec2 to, inout float before) {
  vec2 least = vec2(-64.0), most = size + 64.0, way = to - from;
  float start = 0.0, end = 1.0;
  for (int axis = 0; axis < 2; ++axis) {
    if (abs(way[axis]) < 1e-3) continue;
    float a = (least[axis] - from[axis]) / way[axis], b = (most[axis] - from[axis]) / way[axis];
    start = max(start, min(a, b));
    end = min(end, max(a, b));
  }
  if (start >= end) return;
  before += start * length(way);
  to = from + end * way;
  from += start * way;
}

void main() {
  int shape = int(colorAndShape.a * 255.0 + 0.5);
  color = vec4(colorAndShape.rgb, 1.0);
  vec2 corner = vec2(gl_VertexID & 1, gl_VertexID >> 1);
  vec2 from = pixels(ends.xy), to = pixels(ends.zw), place;
  line = vec4(0.0, 0.0, -1.0, 0.0);
  at = vec2(0.0);
  if (shape < 8) {
    float half_ = max(more.x * scale, leastHalf), before = more.y * scale;
    // A thin level or upright line is in the middle of its pixels.
    if (half_ == leastHalf && (ends.x == ends.z || ends.y == ends.w)) {
      from = floor(from) + 0.5;
      to = floor(to) + 0.5;
    }
    vec2 far = max(abs(from), abs(to));
    if (max(far.x, far.y) > 8192.0) shorten(from, to, before);
    vec2 way = to - from;
    float reach = length(way);
    vec2 along = reach > 0.0 ? way / reach : vec2(1.0, 0.0);
    vec2 across = vec2(-along.y, along.x);
    float grown = half_ + 1.0;
    at = vec2(mix(-grown, reach + grown, corner.x), mix(-grown, grown, corner.y));
    place = from + along * at.x + across * at.y;
    line = vec4(reach, half_, float(shape), before);
  } else if (shape == 8) {
    place = mix(floor(from + 0.5), floor(to + 0.5), corner);
  } else if (shape == 9) {
    float left = corner.y == 0.0 ? ends.x : more.x, right = corner.y == 0.0 ? ends.z : more.y;
    place = pixels(vec2(corner.x == 0.0 ? left : right, corner.y == 0.0 ? ends.y : ends.w));
  } else {
    place = floor(from) + 0.5 + (corner * 2.0 - 1.0) * leastHalf;
  }
  gl_Position = vec4(place.x / size.x * 2.0 - 1.0, 1.0 - place.y / size.y * 2.0, 0.0, 1.0);
}`;

export const strokeFragment = `#version 300 es
precision highp float;
flat in vec4 color;
flat in vec4 line;
in vec2 at;
uniform float dashPixel;
out vec4 result;

// How much of the dash pattern is drawn at a distance, in pixels at 96 dpi.
bool isGap(int dash, float distance) {
  float d = mod(distance, dash == 2 ? 6.0 : 24.0);
  if (dash == 1) return d >= 18.0;
  if (dash == 2) return d >= 3.0;
  if (dash == 3) return (d >= 9.0 && d < 15.0) || d >= 18.0;
  return (d >= 9.0 && d < 12.0) || (d >= 15.0 && d < 18.0) || d >= 21.0;
}

void main() {
  if (line.z < 0.0) {
    result = color;
    return;
  }
  float beyond = max(max(-at.x, at.x - line.x), 0.0);
  float cover = clamp(line.y + 0.5 - length(vec2(beyond, at.y)), 0.0, 1.0);
  int dash = int(line.z + 0.5);
  if (cover <= 0.0 || (dash > 0 && line.y < 0.8 && isGap(dash, (line.w + at.x) / dashPixel))) discard;
  result = vec4(color.rgb, cover);
}`;

/** Shows a finished picture in another place or size. */
export const pictureVertex = `#version 300 es
precision highp float;
uniform vec4 place;
out vec2 at;
void main() {
  vec2 corner = vec2(gl_VertexID & 1, gl_VertexID >> 1);
  at = corner;
  gl_Position = vec4(mix(place.xy, place.zw, corner), 0.0, 1.0);
}`;

export const pictureFragment = `#version 300 es
precision mediump float;
in vec2 at;
uniform sampler2D picture;
out vec4 result;
void main() { result = vec4(texture(picture, at).rgb, 1.0); }`;
