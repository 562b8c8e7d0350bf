#include "host/status_text.h"

#include <iterator>

#include "hexlume_host.h"
#include "host/bound_text.h"
#include "host/result.h"

namespace hexlume {

namespace {

// In a sentence # is the count, and @ the detail.
struct Words {
  int32_t code;
  const char* name;
  const char* english;
  const char* japanese;
};

const Words statusWords[] = {
    // status, short name, sentences
    {HEXLUME_STATUS_OK, "ok", "The call has succeeded.", "正常に終了しました。"},
    {HEXLUME_STATUS_BAD_ARGUMENT, "bad-argument", "An argument is wrong: @.", "引数が正しくありません: @"},
    {HEXLUME_STATUS_NOT_FOUND, "not-found", "There is no such file: @", "ファイルが見つかりません: @"},
    {HEXLUME_STATUS_NOT_A_FILE, "not-a-file", "This is a folder or a device, not a file: @",
     "フォルダまたは装置であり、ファイルではありません: @"},
    {HEXLUME_STATUS_NOT_ALLOWED, "not-allowed", "The file can't be opened or read: @",
     "ファイルを開くことも読むこともできません: @"},
    {HEXLUME_STATUS_EMPTY, "empty", "The drawing has no bytes.", "図面が空です。"},
    {HEXLUME_STATUS_DWG, "dwg", "This is a DWG file. Save the drawing as ASCII DXF.",
     "DWG ファイルです。図面をテキスト形式の DXF で保存してください。"},
    {HEXLUME_STATUS_BINARY_DXF, "binary-dxf", "This is a binary DXF file. Save the drawing as ASCII DXF.",
     "バイナリ形式の DXF ファイルです。図面をテキスト形式の DXF で保存してください。"},
    {HEXLUME_STATUS_COMPRESSED, "compressed", "The file is compressed. Unpack it first.",
     "圧縮されたファイルです。先に展開してください。"},
    {HEXLUME_STATUS_NO_DXF, "no-dxf", "This is no DXF file: it has no section.",
     "DXF ファイルではありません。セクションがありません。"},
    {HEXLUME_STATUS_NO_ENTITIES, "no-entities", "The drawing has no ENTITIES section.",
     "図面に ENTITIES セクションがありません。"},
    {HEXLUME_STATUS_NO_LAYERS, "no-layers",
     "The drawing has tables, but no layer table, and isn't converted.",
     "図面に画層テーブルがないため、変換できません。"},
    {HEXLUME_STATUS_CUT_OFF, "cut-off", "The drawing is cut off here, and nothing can be drawn.",
     "図面がここで途切れているため、何も描画できません。"},
    {HEXLUME_STATUS_TOO_LARGE, "too-large", "The drawing has 2 GB or more.", "図面が 2 GB 以上あります。"},
    {HEXLUME_STATUS_CANCELLED, "cancelled", "The call was cancelled.", "取り消されました。"},
    {HEXLUME_STATUS_LIMIT, "limit", "The limit @ was reached.", "制限 @ に達しました。"},
    {HEXLUME_STATUS_FAULT, "fault", "The drawing can't be drawn from here on.",
     "ここから先は描画できません。"},
    {HEXLUME_STATUS_NO_MEMORY, "no-memory", "There isn't enough memory.", "メモリが足りません。"},
};

const Words remarkWords[] = {
    // code, short name, sentences
    {HEXLUME_REMARK_NO_SUCH_LAYER, "no-such-layer", "The drawing has no layer \"@\".",
     "図面に画層「@」がありません。"},
    {HEXLUME_REMARK_CUT_OFF, "cut-off", "The drawing ends here without its end mark: it may be cut off.",
     "図面が終了記号なしにここで終わっています。途切れている可能性があります。"},
    {HEXLUME_REMARK_SUBSTITUTED, "substituted",
     "# characters that code page 932 doesn't have were replaced by similar ones or \"?\".",
     "コードページ 932 にない # 文字を、似た文字または「?」に置き換えました。"},
    {HEXLUME_REMARK_NOT_UTF8, "not-utf8",
     "# lines aren't UTF-8, the first of them here. They were read as code page 932.",
     "UTF-8 でない行が # 行あり、最初の行はここです。コードページ 932 として読みました。"},
    {HEXLUME_REMARK_EMBEDDED, "embedded", "# embedded objects were left out.",
     "# 個の埋め込みオブジェクトを除外しました。"},
    // The bound's own sentence is used instead.
    {HEXLUME_REMARK_BOUND, "bound", "", ""},
};

template <size_t size>
const Words* Find(const Words (&rows)[size], int32_t code) {
  for (const Words& row : rows)
    if (row.code == code) return &row;
  return nullptr;
}

std::string Filled(const char* words, int64_t count, const std::string& detail) {
  std::string sentence;
  for (const char* next = words; *next != '\0'; ++next) {
    if (*next == '#')
      sentence += std::to_string(count);
    else if (*next == '@')
      sentence += detail;
    else
      sentence += *next;
  }
  return sentence;
}

Sentence SentenceOf(const Words* row, int64_t line, int64_t count, const std::string& detail) {
  if (!row) return {};
  return WithLine({Filled(row->english, count, detail), Filled(row->japanese, count, detail)}, line);
}

}  // namespace

const char* StatusName(int32_t status) {
  const Words* const row = Find(statusWords, status);
  return row ? row->name : nullptr;
}

const char* RemarkName(int32_t code) {
  const Words* const row = Find(remarkWords, code);
  return row ? row->name : nullptr;
}

Sentence StatusSentence(int32_t status, int64_t line, const std::string& detail) {
  return SentenceOf(Find(statusWords, status), line, 0, detail);
}

Sentence RemarkSentence(int32_t code, int64_t line, int64_t count, const std::string& detail) {
  return SentenceOf(Find(remarkWords, code), line, count, detail);
}

Sentence WithLine(Sentence sentence, int64_t line) {
  if (line != 0) {
    sentence.english.insert(0, "Line " + std::to_string(line) + ": ");
    sentence.japanese.insert(0, std::to_string(line) + " 行目: ");
  }
  return sentence;
}

void SettleMessage(hexlume_result& result) {
  result.message = StatusSentence(result.status, result.line, result.detail);
}

namespace {

void AddRemark(hexlume_result& result, int32_t code, int64_t line, int64_t count, const std::string& detail,
               const Sentence& sentence) {
  result.remarks.push_back({sizeof(hexlume_remark), code, line, count, RemarkName(code),
                            result.store.Keep(detail), result.store.Keep(sentence.english),
                            result.store.Keep(sentence.japanese)});
}

}  // namespace

void AddRemark(hexlume_result& result, int32_t code, int64_t line, int64_t count, const std::string& detail) {
  AddRemark(result, code, line, count, detail, RemarkSentence(code, line, count, detail));
}

void AddBoundRemark(hexlume_result& result, int32_t bound, int64_t line) {
  AddRemark(result, HEXLUME_REMARK_BOUND, line, 0, BoundName(bound), WithLine(*BoundSentence(bound), line));
}

}  // namespace hexlume
