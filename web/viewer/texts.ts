// Everything that the page says, in English and Japanese.

const table = {
  title: ["Hexlume viewer", "Hexlume ビューア"],
  open: ["Open…", "開く…"],
  openHint: ["Open drawings (O)", "図面を開く (O)"],
  dropTitle: ["Drop a DXF drawing here", "DXF 図面をここにドロップ"],
  dropText: [
    "or a folder of drawings, or choose files. The drawing stays on this computer: nothing is sent anywhere.",
    "フォルダのドロップやファイルの選択もできます。図面はこのコンピュータから外へ送信されません。",
  ],
  chooseFiles: ["Choose files", "ファイルを選択"],
  dropNow: ["Drop to open", "ドロップして開く"],
  close: ["Close {0}", "{0} を閉じる"],
  drawings: ["Drawings", "図面"],
  starting: ["Starting…", "起動中…"],
  noLibrary: ["The library can't be started: {0}", "ライブラリを起動できません: {0}"],
  converting: ["Converting {0}: {1} %", "{0} を変換中: {1} %"],
  preparing: ["Preparing the picture of {0}…", "{0} の表示を準備中…"],
  inspecting: ["Reading what is in {0}: {1} %", "{0} の内容を読み取り中: {1} %"],
  cancel: ["Cancel", "キャンセル"],
  again: ["Convert again", "もう一度変換"],
  shown: ["{0} strokes, {1} texts, {2} ms", "線 {0} 本、文字列 {1} 個、{2} ms"],
  nothingToOpen: ["No DXF drawing was among the files.", "DXF 図面が見つかりませんでした。"],
  noSuchFile: ["{0} can't be opened from here: {1}", "{0} を開けません: {1}"],
  fileScheme: [
    "the browser doesn't let a page that was opened from a file read other files. Drop the drawing on the page, or choose it.",
    "ファイルから開いたページは他のファイルを読み込めません。図面をドロップするか選択してください。",
  ],
  badMetafile: ["The picture of this drawing can't be read.", "この図面の表示データを読み取れません。"],
  noMemory: ["There isn't enough memory to show this drawing.", "この図面を表示するためのメモリが足りません。"],

  zoomIn: ["Zoom in (+)", "拡大 (+)"],
  zoomOut: ["Zoom out (−)", "縮小 (−)"],
  fit: ["Fit the drawing (9)", "図形全体 (9)"],
  fullSheet: ["Full sheet (0)", "用紙全体 (0)"],
  trueSize: ["True size (1)", "実寸 (1)"],
  stage: ["Drawing. Arrow keys move it, plus and minus zoom.", "図面。矢印キーで移動、＋と－で拡大・縮小。"],
  pan: ["Move (V)", "移動 (V)"],

  layers: ["Layers and line types", "画層と線種"],
  layersShort: ["Layers", "画層"],
  lineTypes: ["Line types", "線種"],
  searchLayers: ["Search layers", "画層を検索"],
  all: ["All", "すべて"],
  none: ["None", "なし"],
  invert: ["Invert", "反転"],
  skipOff: ["Leave out layers that are off or frozen", "非表示・フリーズの画層を除く"],
  off: ["off", "非表示"],
  solid: ["Solid", "実線"],
  dashed: ["Dashed", "破線"],
  dotted: ["Dotted", "点線"],
  chain: ["Chain", "一点鎖線"],
  doubleChain: ["Double chain", "二点鎖線"],
  entityCount: ["{0} entities", "図形 {0} 個"],
  noLayersShown: ["No layer has this name.", "該当する画層はありません。"],
  notRead: ["Nothing has been read yet.", "まだ読み取られていません。"],

  sheet: ["Sheet and conversion", "用紙と変換"],
  sheetShort: ["Sheet", "用紙"],
  colours: ["Colours", "色"],
  asDrawn: ["As drawn", "図面の色"],
  black: ["Black", "黒"],
  onDark: ["Light on dark", "暗い背景"],
  what: ["What is converted", "変換する範囲"],
  wholeSheet: ["Whole sheet", "用紙全体"],
  fullSize: ["Model at full size", "原寸"],
  part: ["A part", "一部分"],
  choosePart: ["Choose the part (P)", "範囲を指定 (P)"],
  partHint: ["Drag a rectangle over the part", "範囲をドラッグで指定してください"],
  partOf: ["{0} × {1} mm at {2}, {3}", "{0} × {1} mm、位置 {2}, {3}"],
  wholeTexts: ["Only texts that are wholly inside", "範囲内に収まる文字だけ"],
  turned: ["Turned by 180°", "180°回転"],
  halfWidth: ["Half-width cells for texts", "文字を半角幅にする"],
  measured: ["Measure the sheet from the entities", "図形から用紙の大きさを決める"],
  denominator: ["Scale beyond A0: 1 to", "A0 を超える図面の縮尺: 1/"],
  format: ["Read as code page 932, as it is", "コードページ 932 としてそのまま読む"],

  contents: ["What is in the drawing", "図面の内容"],
  contentsShort: ["Contents", "内容"],
  file: ["File", "ファイル"],
  version: ["Version", "バージョン"],
  sheetSize: ["Sheet", "用紙"],
  scale: ["Scale", "縮尺"],
  unitsPerMm: ["{0} units for 1 mm of the sheet", "用紙 1 mm あたり {0} 単位"],
  beyondA0: ["1:{0}, as it is larger than A0", "A0 を超えるため 1:{0}"],
  limits: ["Limits", "図面範囲"],
  extents: ["Extents", "図形範囲"],
  strokes: ["Strokes", "線"],
  textsDrawn: ["Texts drawn", "描画された文字列"],
  entities: ["Entities", "図形"],
  kind: ["Kind", "種類"],
  count: ["Count", "個数"],
  inBlocks: ["in blocks", "ブロック内"],
  neverDrawn: ["never drawn", "描画されません"],
  onlyInBlocks: ["drawn in blocks only", "ブロック内のみ描画"],
  notInBlocks: ["not drawn in blocks", "ブロック内では描画されません"],
  blocks: ["Blocks", "ブロック"],
  dimStyles: ["Dimension styles", "寸法スタイル"],
  remarks: ["Remarks", "注意"],
  whyEmpty: ["Why the sheet is empty", "用紙が空の理由"],
  emptyNoEntities: ["The drawing has no entities.", "図面に図形がありません。"],
  emptyNeverDrawn: [
    "The drawing has only entities of kinds that are never drawn: {0}.",
    "描画されない種類の図形だけです: {0}。",
  ],
  emptyOnlyBlocks: [
    "All entities are in blocks, and no INSERT places one.",
    "図形はすべてブロック内にあり、INSERT で配置されていません。",
  ],
  emptyHidden: [
    "All that would be drawn is on layers or in line types that are left out.",
    "描画される図形はすべて、除外した画層または線種にあります。",
  ],
  emptyOutside: [
    "What is drawn is outside of the sheet: the header's limits or extents don't fit the entities. Measure the sheet from the entities.",
    "図形が用紙の外にあります。ヘッダの範囲が図形と合っていません。「図形から用紙の大きさを決める」をお試しください。",
  ],
  emptyOther: [
    "Nothing was drawn: look at the remarks and at the kinds of entities.",
    "何も描画されませんでした。注意と図形の種類を確認してください。",
  ],
  measureNow: ["Measure from the entities", "図形から決める"],

  find: ["Find text", "文字を検索"],
  findShort: ["Find", "検索"],
  findPlaceholder: ["Text in the drawing", "図面内の文字"],
  findHint: [
    "Half and full width, capitals and small letters are alike.",
    "全角・半角、大文字・小文字は区別しません。",
  ],
  hits: ["{0} of {1}", "{0} / {1}"],
  noHits: ["Not found", "見つかりません"],
  next: ["Next", "次へ"],
  previous: ["Previous", "前へ"],

  measure: ["Measure", "計測"],
  measureShort: ["Measure", "計測"],
  distance: ["Distance (D)", "距離 (D)"],
  angle: ["Angle (G)", "角度 (G)"],
  area: ["Area (A)", "面積 (A)"],
  snap: ["Snap to ends, crossings and centres", "端点・交点・中心にスナップ"],
  snapEnd: ["end", "端点"],
  snapCrossing: ["crossing", "交点"],
  snapCentre: ["centre", "中心"],
  measureDistance: ["Click two points", "2 点をクリック"],
  measureAngle: ["Click the corner, then a point on each arm", "頂点、両方の辺の順にクリック"],
  measureArea: [
    "Click the corners; C or a double click closes the area",
    "頂点をクリックし、C またはダブルクリックで確定",
  ],
  units: ["units", "単位"],
  perimeter: ["perimeter {0}", "周長 {0}"],
  onSheet: ["{0} on the sheet", "用紙上 {0}"],
  clear: ["Clear", "消去"],
  scaleUnknown: [
    "In millimetres of the sheet: the drawing's scale isn't known.",
    "図面の縮尺が不明なため、用紙上の mm で表示します。",
  ],

  compare: ["Compare two drawings", "2 図面の比較"],
  compareShort: ["Compare", "比較"],
  compareHint: [
    "Open two drawings, then choose them here. What only A has is red, what only B has is green, the rest is grey.",
    "図面を 2 つ開いてから選択してください。A のみは赤、B のみは緑、共通部分は灰色です。",
  ],
  drawingA: ["A, red", "A（赤）"],
  drawingB: ["B, green", "B（緑）"],
  compareNow: ["Compare", "比較"],
  compareResult: ["{0} only in A, {1} only in B, {2} in both", "A のみ {0}、B のみ {1}、共通 {2}"],
  same: ["Both are the same.", "2 つの図面は同じです。"],
  difference: ["Difference {0} of {1}", "差異 {0} / {1}"],
  comparing: ["Comparing…", "比較中…"],
  versus: ["{0} ↔ {1}", "{0} ↔ {1}"],

  save: ["Save", "保存"],
  saveHint: ["Save as… (Ctrl+S)", "名前を付けて保存 (Ctrl+S)"],
  saveEmf: ["EMF, the library's metafile", "EMF（ライブラリのメタファイル）"],
  saveSvg: ["SVG, in strokes", "SVG（ベクタ）"],
  savePng: ["PNG, {0} dpi", "PNG（{0} dpi）"],
  savePdf: ["PDF, in strokes, texts can be searched", "PDF（ベクタ、文字検索可能）"],
  resolution: ["Resolution", "解像度"],
  saving: ["Saving…", "保存中…"],
  tooLargePicture: [
    "The picture is too large for the browser: {0} dpi was used.",
    "画像が大きすぎるため {0} dpi で保存しました。",
  ],

  print: ["Print (Ctrl+P)", "印刷 (Ctrl+P)"],
  printTitle: ["Print", "印刷"],
  paper: ["Paper", "用紙"],
  paperOfSheet: ["As the sheet ({0} × {1} mm)", "図面と同じ ({0} × {1} mm)"],
  printTrue: ["True scale", "実寸"],
  printFit: ["Fit to the paper", "用紙に合わせる"],
  tiles: ["Pages: {0}", "{0} ページ"],
  landscape: ["Landscape", "横"],
  ruler: ["With a ruler of 100 mm", "100 mm の目盛付き"],
  testPage: ["Test page", "テストページ"],
  testPageText: [
    "Measure this line: it must have 100 mm. If not, choose “actual size” or “100 %” in the print dialog.",
    "この線は 100 mm です。異なる場合は印刷ダイアログで「実際のサイズ」または「100%」を選択してください。",
  ],
  printHint: [
    "Choose “actual size” or “100 %” and no margins in the print dialog.",
    "印刷ダイアログで「実際のサイズ」または「100%」、余白なしを選択してください。",
  ],

  help: ["Keys and help (?)", "キー操作とヘルプ (?)"],
  helpTitle: ["Keys", "キー操作"],
  helpAbout: ["About and licences", "このビューアとライセンス"],
  panels: ["Panels", "パネル"],
  closePanel: ["Close the panel", "パネルを閉じる"],
  language: ["Language", "言語"],
  helpOpen: ["Open drawings", "図面を開く"],
  helpTabs: ["Next or previous drawing", "次・前の図面"],
  helpClose: ["Close the drawing", "図面を閉じる"],
  helpMove: ["Move (with Shift: by a page)", "移動（Shift で 1 画面）"],
  helpZoom: ["Zoom; with the wheel at the pointer", "拡大・縮小（ホイールはポインタ位置）"],
  helpViews: ["Full sheet, true size, the drawing", "用紙全体、実寸、図形全体"],
  helpPanels: ["Layers, sheet, contents, measure, compare", "画層、用紙、内容、計測、比較"],
  helpFind: ["Find; next and previous hit", "検索、次・前の結果"],
  helpMeasure: ["Distance, angle, area", "距離、角度、面積"],
  helpPart: ["Choose a part", "範囲を指定"],
  helpPoint: [
    "In these: arrow keys move the cross, Enter sets a point, Backspace takes one back, N snapping on or off",
    "計測・範囲指定中: 矢印キーで十字を移動、Enter で確定、Backspace で取消、N でスナップ切替",
  ],
  helpEscape: ["Leave a tool, close a panel", "ツールやパネルを閉じる"],
  helpSave: ["Save, print", "保存、印刷"],
} as const satisfies { [key: string]: readonly [string, string] };

export type TextKey = keyof typeof table;
export type Language = "en" | "ja";

let language: Language = "en";

export function setLanguage(to: Language): void {
  language = to;
}

export function currentLanguage(): Language {
  return language;
}

/** The language of the browser, if it is one of the two. */
export function browserLanguage(): Language {
  return navigator.language.toLowerCase().startsWith("ja") ? "ja" : "en";
}

/** A text in the current language, with {0}, {1} replaced. */
export function t(key: TextKey, ...values: (string | number)[]): string {
  const text: string = table[key][language === "ja" ? 1 : 0];
  return text.replace(/\{(\d)\}/g, (_, index: string) => String(values[Number(index)] ?? ""));
}

/** One of the library's sentences. */
export function sentenceOf(sentence: { en: string; ja: string }): string {
  return language === "ja" ? sentence.ja : sentence.en;
}

/** A number with at most so many decimals, and groups of thousands. */
export function numberText(value: number, decimals = 2): string {
  return value.toLocaleString(language === "ja" ? "ja-JP" : "en-US", { maximumFractionDigits: decimals });
}
