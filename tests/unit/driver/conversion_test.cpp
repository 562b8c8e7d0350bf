// The four conversions side by side: what each does with its dialogs, its selection and its faults. The
// dialogs and the system's version are the test's own.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <string>

#include "driver/conv_state.h"
#include "driver/hexlume_app.h"
#include "hexlume.h"
#include "support/leaving_fault.h"
#include "support/metafile_canvas.h"
#include "support/scripted_seams.h"
#include "support/text_drawing.h"

namespace hexlume::conversion_test {
namespace {

const std::string oneLine = "0 SECTION\n2 ENTITIES\n0 LINE\n8 A\n10 0\n20 0\n11 10\n21 10\n0 ENDSEC\n0 EOF\n";

// A drawing of width by height with the layers A, B and C (C frozen) and one line on A.
std::string Drawing(int width, int height) {
  return "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 " + std::to_string(width) + "\n20 " +
         std::to_string(height) +
         "\n0 ENDSEC\n"
         "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n"
         "0 LAYER\n2 A\n70 0\n62 7\n0 LAYER\n2 B\n70 0\n62 7\n0 LAYER\n2 C\n70 1\n62 7\n0 ENDTAB\n0 "
         "ENDSEC\n" +
         oneLine;
}

const std::string small = Drawing(420, 297);
const std::string beyondA0 = Drawing(2000, 1500);

constexpr RECT view = {0, 0, 1000, 1000};
const auto untouched = reinterpret_cast<HENHMETAFILE>(static_cast<uintptr_t>(1234));

enum class Export { whole, part, turned, fullSize };

class ConversionTest : public testing::Test {
 protected:
  void SetUp() override {
    ResetSeams();
    state.monochrome = 0;
    theApp.SaveSelection("", 0, {}, 0, {}, 0, 0);
  }

  void TearDown() override {
    if (out != untouched && out) DeleteEnhMetaFile(out);
  }

  // Runs one conversion; a fault that leaves goes to `left`.
  int32_t Run(Export which, const std::string& path, int32_t showDialogs = 0) {
    int32_t code = -999;
    left = FaultLeaving([&] {
      switch (which) {
        case Export::whole: code = vzMetaMake(path.c_str(), &out, showDialogs, 0); break;
        case Export::part: code = vzReMetaMake(path.c_str(), &out, 0, view, 0, showDialogs); break;
        case Export::turned: code = vzRotMetaMake(&out); break;
        case Export::fullSize: code = vzFullSizeMetaMake(path.c_str(), &out, showDialogs, 0); break;
      }
    });
    return code;
  }

  std::string Listing() {
    const HENHMETAFILE metafile = out;
    out = untouched;
    return ListAndDelete(metafile);
  }

  bool NothingIsKept() const {
    return state.layerNames.empty() && state.layers.empty() && state.excludedLayers.empty() &&
           state.excludedLtypes.empty() && state.ltypes.empty() && state.dimStyles.empty() &&
           state.blocks.empty();
  }

  HENHMETAFILE out = untouched;
  std::optional<int32_t> left;
};

// Leaves out so many layers by their count, with the names given.
void Exclude(int32_t count, std::initializer_list<const char*> names) {
  state.excludedLayerCount = count;
  for (const char* name : names) {
    ExcludedLayer layer = {};
    std::strcpy(layer.name, name);
    state.excludedLayers.Add(layer);
  }
}

// Dialogs

TEST_F(ConversionTest, a_drawing_that_fits_shows_the_sheet_but_no_size_dialog) {
  const TemporaryDrawing drawing(small);
  for (const Export which : {Export::whole, Export::part, Export::fullSize}) {
    ResetSeams();
    EXPECT_EQ(HEXLUME_OK, Run(which, drawing.Path(), 1));
    EXPECT_EQ(0, seams.sizeDialogCalls);
    EXPECT_EQ(1, seams.selectionSheetCalls);
    Listing();
  }
}

TEST_F(ConversionTest, a_drawing_beyond_a0_shows_the_size_dialog_and_the_sheet) {
  const TemporaryDrawing drawing(beyondA0);
  for (const Export which : {Export::whole, Export::part, Export::fullSize}) {
    ResetSeams();
    EXPECT_EQ(HEXLUME_OK, Run(which, drawing.Path(), 1));
    EXPECT_EQ(1, seams.sizeDialogCalls);
    EXPECT_EQ(1, seams.selectionSheetCalls);
    Listing();
  }
}

TEST_F(ConversionTest, show_dialogs_2_asks_for_the_size_alone) {
  const TemporaryDrawing drawing(beyondA0);
  for (const Export which : {Export::whole, Export::part, Export::fullSize}) {
    ResetSeams();
    EXPECT_EQ(HEXLUME_OK, Run(which, drawing.Path(), 2));
    EXPECT_EQ(1, seams.sizeDialogCalls);
    EXPECT_EQ(0, seams.selectionSheetCalls);
    Listing();
  }
}

TEST_F(ConversionTest, without_dialogs_a_drawing_beyond_a0_takes_the_denominator_100) {
  const TemporaryDrawing drawing(beyondA0);
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, drawing.Path()));
  EXPECT_EQ(100, state.scaleDenominator);
  // 2000 / 100 = 20 mm, 1500 / 100 = 15 mm.
  EXPECT_EQ(0u, Listing().find("Frame(0, 0, 2000, 1500)\n"));
  EXPECT_EQ(0, seams.sizeDialogCalls);
}

TEST_F(ConversionTest, the_turned_conversion_never_shows_a_dialog) {
  const TemporaryDrawing drawing(beyondA0);
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, drawing.Path()));
  Listing();
  EXPECT_EQ(HEXLUME_OK, Run(Export::turned, ""));
  EXPECT_EQ(0, seams.sizeDialogCalls);
  EXPECT_EQ(0, seams.selectionSheetCalls);
}

TEST_F(ConversionTest, a_cancelled_size_dialog_ends_with_16) {
  const TemporaryDrawing drawing(beyondA0);
  seams.sizeDialog = [] { return false; };
  for (const Export which : {Export::whole, Export::part, Export::fullSize}) {
    EXPECT_EQ(HEXLUME_CANCELLED, Run(which, drawing.Path(), 1));
    EXPECT_EQ(untouched, out);
    EXPECT_TRUE(NothingIsKept());
  }
  EXPECT_EQ(0, seams.selectionSheetCalls);
}

TEST_F(ConversionTest, a_cancelled_sheet_ends_with_16) {
  const TemporaryDrawing drawing(small);
  seams.selectionSheet = [] {
    Exclude(1, {"A"});
    return false;
  };
  for (const Export which : {Export::whole, Export::part, Export::fullSize}) {
    EXPECT_EQ(HEXLUME_CANCELLED, Run(which, drawing.Path(), 1));
    EXPECT_EQ(untouched, out);
    EXPECT_TRUE(NothingIsKept());
  }
}

// Where no window can be made

TEST_F(ConversionTest, dialogs_that_cannot_be_shown_are_as_none) {
  // A drawing beyond A0 with a fraction that whole millimetres would lose, and one without layers, of whose
  // none as many are left out as there are.
  const std::string fraction =
      "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 2000.95\n20 1500.95\n0 ENDSEC\n" + oneLine;
  const std::string withoutLayers =
      "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n" + oneLine;
  seams.makesWindows = false;
  for (const std::string& bytes : {small, fraction, withoutLayers}) {
    const TemporaryDrawing drawing(bytes);
    for (const Export which : {Export::whole, Export::part, Export::fullSize}) {
      EXPECT_EQ(HEXLUME_OK, Run(which, drawing.Path(), 0));
      const std::string without = Listing();
      EXPECT_NE(std::string::npos, without.find("\nSetMapMode("));
      EXPECT_EQ(HEXLUME_OK, Run(which, drawing.Path(), 1));
      EXPECT_EQ(without, Listing());
    }
  }
}

// The short way to an empty metafile

TEST_F(ConversionTest, one_more_than_all_layers_takes_the_short_way_at_the_whole_sheet) {
  const TemporaryDrawing drawing(small);
  seams.selectionSheet = [] {
    Exclude(4, {});
    return true;
  };
  for (const Export which : {Export::whole, Export::fullSize}) {
    EXPECT_EQ(HEXLUME_OK, Run(which, drawing.Path(), 1));
    EXPECT_EQ("Frame(0, 0, 42000, 29700)\n", Listing());
    EXPECT_TRUE(NothingIsKept());
  }
}

TEST_F(ConversionTest, all_layers_unticked_go_the_long_way_at_the_whole_sheet) {
  const TemporaryDrawing drawing(small);
  seams.selectionSheet = [] {
    Exclude(3, {"A", "B", "C"});
    return true;
  };
  for (const Export which : {Export::whole, Export::fullSize}) {
    EXPECT_EQ(HEXLUME_OK, Run(which, drawing.Path(), 1));
    EXPECT_EQ("Frame(0, 0, 42000, 29700)\nSetMapMode(MM_HIMETRIC)\n", Listing());
  }
}

TEST_F(ConversionTest, all_layers_unticked_take_the_short_way_at_a_part_of_the_sheet) {
  const TemporaryDrawing drawing(small);
  seams.selectionSheet = [] {
    Exclude(3, {"A", "B", "C"});
    return true;
  };
  EXPECT_EQ(HEXLUME_OK, Run(Export::part, drawing.Path(), 1));
  EXPECT_EQ("Frame(0, 0, 1000, 1000)\n", Listing());
  EXPECT_TRUE(NothingIsKept());
}

TEST_F(ConversionTest, one_more_than_all_layers_goes_the_long_way_at_a_part_of_the_sheet) {
  const TemporaryDrawing drawing(small);
  seams.selectionSheet = [] {
    Exclude(4, {"A"});
    return true;
  };
  EXPECT_EQ(HEXLUME_OK, Run(Export::part, drawing.Path(), 1));
  EXPECT_EQ("Frame(0, 0, 1000, 1000)\nSetMapMode(MM_HIMETRIC)\n", Listing());
}

TEST_F(ConversionTest, five_line_types_unticked_take_the_short_way_at_a_part_of_the_sheet_alone) {
  const TemporaryDrawing drawing(small);
  seams.selectionSheet = [] {
    state.excludedLtypes = {0, 2, 1, 3, 4};
    state.excludedLtypeCount = 5;
    return true;
  };
  EXPECT_EQ(HEXLUME_OK, Run(Export::part, drawing.Path(), 1));
  EXPECT_EQ("Frame(0, 0, 1000, 1000)\n", Listing());
  for (const Export which : {Export::whole, Export::fullSize}) {
    EXPECT_EQ(HEXLUME_OK, Run(which, drawing.Path(), 1));
    EXPECT_EQ("Frame(0, 0, 42000, 29700)\nSetMapMode(MM_HIMETRIC)\n", Listing());
  }
}

TEST_F(ConversionTest, the_short_way_does_not_save_the_selection) {
  const TemporaryDrawing drawing(small);
  seams.selectionSheet = [] {
    Exclude(4, {});
    return true;
  };
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, drawing.Path(), 1));
  Listing();
  EXPECT_EQ(HEXLUME_NOT_A_DRAWING, Run(Export::turned, ""));
}

// The carry-over

TEST_F(ConversionTest, the_whole_sheet_and_the_full_size_are_repeated_turned) {
  const TemporaryDrawing drawing(small);
  for (const Export which : {Export::whole, Export::fullSize}) {
    theApp.SaveSelection("", 0, {}, 0, {}, 0, 0);
    EXPECT_EQ(HEXLUME_OK, Run(which, drawing.Path()));
    Listing();
    EXPECT_EQ(HEXLUME_OK, Run(Export::turned, ""));
    // (0, 0) is at (0, -29700) on the sheet and (10, 10) at (1000, -28700). The sheet's centre is (21000,
    // 14850). Turned, the ends swap: (42000 - 1000, -29700 + 28700) to (42000 - 0, -29700 + 29700).
    EXPECT_NE(std::string::npos, Listing().find("MoveToEx(41000, -1000)\nLineTo(42000, 0)\n"));
  }
}

TEST_F(ConversionTest, a_part_of_the_sheet_is_not_repeated) {
  const TemporaryDrawing drawing(small);
  EXPECT_EQ(HEXLUME_OK, Run(Export::part, drawing.Path()));
  Listing();
  EXPECT_EQ(HEXLUME_NOT_A_DRAWING, Run(Export::turned, ""));
}

TEST_F(ConversionTest, what_was_excluded_is_excluded_turned_too) {
  const TemporaryDrawing drawing(small);
  seams.selectionSheet = [] {
    Exclude(1, {"A"});
    return true;
  };
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, drawing.Path(), 1));
  Listing();
  EXPECT_EQ(HEXLUME_OK, Run(Export::turned, ""));
  EXPECT_EQ("Frame(0, 0, 42000, 29700)\nSetMapMode(MM_HIMETRIC)\n", Listing());
}

// 11 million lines are walked over, and 8 groups of each are never looked at.
TEST_F(ConversionTest, a_long_block_on_an_excluded_layer_may_be_inserted_often) {
  std::string lines;
  for (int i = 0; i < 10'000; ++i) lines += "0 LINE\n8 A\n62 1\n39 0\n10 0\n20 0\n30 0\n11 1\n21 1\n31 0\n";
  std::string inserts;
  for (int i = 0; i < 1100; ++i) inserts += "0 INSERT\n8 B\n2 X\n10 0\n20 0\n";
  std::string drawing = small;
  const size_t entities = drawing.find("0 SECTION\n2 ENTITIES\n");
  const size_t end = drawing.rfind("0 ENDSEC\n");
  drawing.insert(end, inserts + "0 LINE\n8 B\n10 0\n20 0\n11 10\n21 10\n");
  drawing.insert(entities,
                 "0 SECTION\n2 BLOCKS\n0 BLOCK\n2 X\n10 0\n20 0\n3 X\n" + lines + "0 ENDBLK\n0 ENDSEC\n");
  seams.selectionSheet = [] {
    Exclude(1, {"A"});
    return true;
  };
  const TemporaryDrawing file(drawing);
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, file.Path(), 1));
  // (0, 0) and (10, 10), from the left end.
  EXPECT_NE(std::string::npos, Listing().find("MoveToEx(0, -29700)\nLineTo(1000, -28700)\n"));
}

TEST_F(ConversionTest, an_excluded_family_is_excluded_turned_too) {
  const TemporaryDrawing drawing(small);
  seams.selectionSheet = [] {
    state.excludedLtypes = {0};
    state.excludedLtypeCount = 1;
    return true;
  };
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, drawing.Path(), 1));
  Listing();
  EXPECT_EQ(HEXLUME_OK, Run(Export::turned, ""));
  EXPECT_EQ("Frame(0, 0, 42000, 29700)\nSetMapMode(MM_HIMETRIC)\n", Listing());
}

TEST_F(ConversionTest, after_exclusions_and_then_none_the_turned_one_excludes_nothing) {
  const TemporaryDrawing drawing(small);
  seams.selectionSheet = [] {
    Exclude(1, {"A"});
    return true;
  };
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, drawing.Path(), 1));
  Listing();
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, drawing.Path(), 0));
  Listing();
  EXPECT_EQ(HEXLUME_OK, Run(Export::turned, ""));
  EXPECT_NE(std::string::npos, Listing().find("LineTo"));
}

TEST_F(ConversionTest, a_cancelled_conversion_does_not_save) {
  const TemporaryDrawing first(small);
  const TemporaryDrawing second(Drawing(210, 148));
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, first.Path()));
  Listing();
  seams.selectionSheet = [] { return false; };
  EXPECT_EQ(HEXLUME_CANCELLED, Run(Export::whole, second.Path(), 1));
  EXPECT_EQ(HEXLUME_OK, Run(Export::turned, ""));
  EXPECT_EQ(0u, Listing().find("Frame(0, 0, 42000, 29700)\n"));
}

TEST_F(ConversionTest, the_turned_one_takes_the_saved_scale_as_its_denominator) {
  const TemporaryDrawing drawing(beyondA0);
  seams.sizeDialog = [] {
    state.scaleDenominator = 50;
    return true;
  };
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, drawing.Path(), 2));
  Listing();
  EXPECT_EQ(HEXLUME_OK, Run(Export::turned, ""));
  // 2000 / 50 = 40 mm, 1500 / 50 = 30 mm.
  EXPECT_EQ(0u, Listing().find("Frame(0, 0, 4000, 3000)\n"));
}

TEST_F(ConversionTest, after_the_full_size_the_turned_one_has_the_denominator_1) {
  const TemporaryDrawing drawing(beyondA0);
  EXPECT_EQ(HEXLUME_OK, Run(Export::fullSize, drawing.Path()));
  Listing();
  EXPECT_EQ(HEXLUME_OK, Run(Export::turned, ""));
  EXPECT_EQ(1, state.scaleDenominator);
  EXPECT_EQ(0u, Listing().find("Frame(0, 0, 200000, 150000)\n"));
}

// Exits

TEST_F(ConversionTest, a_file_that_is_gone_for_the_drawing_pass_ends_with_2_and_was_saved) {
  for (const Export which : {Export::whole, Export::part, Export::fullSize}) {
    const TemporaryDrawing drawing(small);
    const std::string path = drawing.Path();
    seams.selectionSheet = [&path] { return std::filesystem::remove(path); };
    EXPECT_EQ(HEXLUME_NOT_OPENED, Run(which, path, 1));
    EXPECT_EQ(untouched, out);
    EXPECT_TRUE(NothingIsKept());
    // Gone altogether now.
    EXPECT_EQ(HEXLUME_NOT_A_DRAWING, Run(Export::turned, ""));
  }
}

TEST_F(ConversionTest, a_conversion_that_ends_with_2_has_saved_already) {
  const TemporaryDrawing drawing(small);
  const std::string path = drawing.Path();
  seams.selectionSheet = [&path] { return std::filesystem::remove(path); };
  EXPECT_EQ(HEXLUME_NOT_OPENED, Run(Export::whole, path, 1));
  const char* saved = nullptr;
  int32_t layerCount, ltypeCount, scale, font;
  NamedTable<ExcludedLayer> layers;
  std::vector<int32_t> ltypes;
  theApp.LoadSelection(saved, layerCount, layers, ltypeCount, ltypes, scale, font);
  EXPECT_EQ(path, saved);
}

TEST_F(ConversionTest, a_finished_conversion_keeps_no_table) {
  const TemporaryDrawing drawing(small);
  for (const Export which : {Export::whole, Export::part, Export::fullSize, Export::turned}) {
    EXPECT_EQ(HEXLUME_OK, Run(which, drawing.Path()));
    EXPECT_TRUE(NothingIsKept());
    Listing();
  }
}

TEST_F(ConversionTest, a_failed_measuring_pass_ends_with_30) {
  for (const Export which : {Export::whole, Export::part, Export::fullSize}) {
    EXPECT_EQ(HEXLUME_NOT_A_DRAWING, Run(which, "no such file.dxf"));
    EXPECT_EQ(untouched, out);
  }
}

// Faults. Two ENTITIES sections: the fault comes at the start of the second one.

std::string TwoSections() {
  const std::string entities = "0 SECTION\n2 ENTITIES\n0 LINE\n8 A\n10 0\n20 0\n11 10\n21 10\n0 ENDSEC\n";
  std::string drawing = small;
  drawing.insert(drawing.rfind("0 EOF"), entities);
  return drawing;
}

// A sanitizer would report the fault before it happens, so it doesn't look.
__attribute__((no_sanitize("undefined"))) void WriteNowhere() {
  static int* volatile nowhere = nullptr;
  *nowhere = 1;
}

void FaultAtSecondSection() {
  seams.systemVersion = [calls = 0]() mutable -> SystemVersion {
    if (++calls == 2) WriteNowhere();
    return {10, 0};
  };
}

TEST_F(ConversionTest, a_fault_at_the_whole_sheet_gives_30_and_what_was_drawn) {
  const TemporaryDrawing drawing(TwoSections());
  FaultAtSecondSection();
  EXPECT_EQ(HEXLUME_NOT_A_DRAWING, Run(Export::whole, drawing.Path()));
  EXPECT_FALSE(left.has_value());
  EXPECT_TRUE(NothingIsKept());
  EXPECT_EQ(
      "Frame(0, 0, 42000, 29700)\nSetMapMode(MM_HIMETRIC)\nCreatePen(1, PS_SOLID, 0, 0x000000)\n"
      "SelectObject(1)\nMoveToEx(0, -29700)\nLineTo(1000, "
      "-28700)\nSelectObject(BLACK_PEN)\nDeleteObject(1)\n",
      Listing());
}

TEST_F(ConversionTest, a_fault_in_the_other_three_leaves_as_11) {
  const TemporaryDrawing drawing(TwoSections());
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, drawing.Path()));
  Listing();
  for (const Export which : {Export::part, Export::turned, Export::fullSize}) {
    FaultAtSecondSection();
    Run(which, drawing.Path());
    EXPECT_EQ(11, left.value_or(0));
    EXPECT_EQ(untouched, out);
    EXPECT_TRUE(NothingIsKept());
  }
}

TEST_F(ConversionTest, any_exception_in_the_drawing_leaves_as_11) {
  const TemporaryDrawing drawing(small);
  seams.systemVersion = []() -> SystemVersion { throw int32_t(-1); };
  Run(Export::part, drawing.Path());
  EXPECT_EQ(11, left.value_or(0));
}

TEST_F(ConversionTest, a_fault_in_a_dialog_gives_30_at_the_whole_sheet_and_no_metafile) {
  const TemporaryDrawing drawing(small);
  seams.selectionSheet = []() -> bool { throw std::bad_alloc(); };
  EXPECT_EQ(HEXLUME_NOT_A_DRAWING, Run(Export::whole, drawing.Path(), 1));
  EXPECT_EQ(untouched, out);
  EXPECT_TRUE(NothingIsKept());
}

TEST_F(ConversionTest,
       a_path_too_long_to_be_saved_gives_30_at_the_whole_sheet_and_leaves_as_minus_1_at_full_size) {
  const TemporaryDrawing drawing(small);
  const std::string longPath = drawing.LongPath();
  EXPECT_EQ(HEXLUME_NOT_A_DRAWING, Run(Export::whole, longPath));
  EXPECT_EQ(untouched, out);
  Run(Export::fullSize, longPath);
  EXPECT_EQ(-1, left.value_or(0));
  EXPECT_EQ(untouched, out);
  // A part of the sheet isn't saved, and so any path that opens will do.
  EXPECT_EQ(HEXLUME_OK, Run(Export::part, longPath));
}

// Arguments

TEST_F(ConversionTest, a_null_argument_gives_30) {
  EXPECT_EQ(30, vzMetaMake(nullptr, &out, 0, 0));
  EXPECT_EQ(30, vzMetaMake("a.dxf", nullptr, 0, 0));
  EXPECT_EQ(30, vzReMetaMake(nullptr, &out, 0, view, 0, 0));
  EXPECT_EQ(30, vzReMetaMake("a.dxf", nullptr, 0, view, 0, 0));
  EXPECT_EQ(30, vzRotMetaMake(nullptr));
  EXPECT_EQ(30, vzFullSizeMetaMake(nullptr, &out, 0, 0));
  EXPECT_EQ(30, vzFullSizeMetaMake("a.dxf", nullptr, 0, 0));
  EXPECT_EQ(untouched, out);
}

TEST_F(ConversionTest, a_twin_sets_the_switch_before_it_looks_at_its_arguments) {
  vzDXFMetaMake(nullptr, &out, 0, 0, 1);
  EXPECT_EQ(1, state.monochrome);
  vzDXFReMetaMake(nullptr, &out, 0, view, 0, 0, 2);
  EXPECT_EQ(2, state.monochrome);
  vzDXFRotMetaMake(nullptr, 3);
  EXPECT_EQ(3, state.monochrome);
  vzDXFFullSizeMetaMake(nullptr, &out, 0, 0, 4);
  EXPECT_EQ(4, state.monochrome);
}

TEST_F(ConversionTest, the_font_mode_is_returned_and_kept) {
  const TemporaryDrawing drawing(small);
  EXPECT_EQ(1, vzDXFSetFontMode(1));
  EXPECT_EQ(HEXLUME_OK, Run(Export::whole, drawing.Path()));
  EXPECT_EQ(1, state.fontMode);
  EXPECT_EQ(200, vzDXFSetFontMode(200));
  EXPECT_EQ(200, state.fontMode);
}

}  // namespace
}  // namespace hexlume::conversion_test
