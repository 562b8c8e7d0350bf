// The page of the layers.
#include "windows/dialog_test.h"

namespace hexlume {
namespace {

using Texts = std::vector<std::wstring>;

class LayerPage : public DialogTest {
 protected:
  static void OkAtOnce() { SheetWindow().Ok(); }

  const std::string three = LayersDrawing({{"A", 7}, {"B", 7}, {"C", 7}});
};

TEST_F(LayerPage, with_all_ticked_nothing_is_left_out) {
  const Conversion drawn = Select(three, OkAtOnce);
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ((Numbers{0, 1, 2}), drawn.Lines());
}

TEST_F(LayerPage, one_layer_unticked_of_three_is_left_out) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    sheet.ClickBox(1);
    sheet.Ok();
  });
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ((Numbers{0, 2}), drawn.Lines());
}

TEST_F(LayerPage, a_double_click_on_a_row_flips_it) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    EXPECT_TRUE(sheet.IsTicked(2));
    sheet.DoubleClickText(2);
    WaitFor("row without a tick", [&] { return !sheet.IsTicked(2); });
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1}), drawn.Lines());
}

}  // namespace
}  // namespace hexlume
