#include "host/bound_text.h"

#include <iterator>

#include "hexlume_host.h"

namespace hexlume {

namespace {

struct BoundWords {
  const char* name;
  Sentence sentence;
};

// In the order of the numbers in hexlume_host.h, which are the places of the bits in driver/work_budget.h.
const BoundWords boundWords[] = {
    {"work",
     {"The drawing takes more work than a conversion does. It ends here.",
      "変換の作業量の上限に達しました。ここで終了します。"}},
    {"metafile-size",
     {"The metafile would be larger than a conversion makes it. It ends here.",
      "メタファイルの大きさの上限に達しました。ここで終了します。"}},
    {"nested-bytes",
     {"Blocks within blocks read too much of the drawing. It ends here.",
      "ブロック内のブロックの読み込み量の上限に達しました。ここで終了します。"}},
    {"nesting-depth",
     {"Blocks within blocks are too deep. The drawing ends here.",
      "ブロックの入れ子が深すぎます。ここで終了します。"}},
    {"hatch-corners",
     {"A hatch has too many corners. Some were left out.",
      "ハッチングの頂点が多すぎます。一部を除外しました。"}},
    {"hatch-paths",
     {"A hatch has too many paths. Some were left out.",
      "ハッチングの境界が多すぎます。一部を除外しました。"}},
    {"hatch-reach",
     {"A path of a hatch is too far from the origin and was left out.",
      "原点から遠すぎるハッチングの境界を除外しました。"}},
    {"hatch-rectangles",
     {"A hatch has too many rectangles. Some of its paths were left out.",
      "ハッチングの矩形が多すぎます。一部の境界を除外しました。"}},
    {"hatch-dashes",
     {"A line of a hatch's pattern has too many dashes. Some were left out.",
      "ハッチングの線の要素が多すぎます。一部を除外しました。"}},
    {"hatch-strokes",
     {"A hatch has too many lines, dashes or dots. The rest was left out.",
      "ハッチングの線が多すぎます。残りを除外しました。"}},
    {"dashes",
     {"A line has too many dashes, dots or gaps. It ends early.",
      "線の破線要素が多すぎます。途中で終了しました。"}},
    {"spline-points",
     {"A spline has too many points and was left out.", "点が多すぎるスプラインを除外しました。"}},
    {"text-rounds",
     {"A text has too many codes within codes. Some remain.",
      "文字列の制御コードの入れ子が多すぎます。一部が残りました。"}},
};
static_assert(std::size(boundWords) == boundCount);
static_assert(1 << HEXLUME_BOUND_TEXT_ROUNDS == textRoundsBound);

const BoundWords* Find(int32_t bound) {
  return bound >= 0 && bound < boundCount ? &boundWords[bound] : nullptr;
}

}  // namespace

const char* BoundName(int32_t bound) {
  const BoundWords* const words = Find(bound);
  return words ? words->name : nullptr;
}

const Sentence* BoundSentence(int32_t bound) {
  const BoundWords* const words = Find(bound);
  return words ? &words->sentence : nullptr;
}

}  // namespace hexlume
