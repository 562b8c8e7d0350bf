#include "driver/hexlume_app.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "driver/bounded_copy.h"

namespace hexlume::hexlume_app_test {
namespace {

// A selection as a conversion holds it.
struct Selection {
  const char* path = nullptr;
  int32_t layerCount = -1;
  NamedTable<ExcludedLayer> layers;
  int32_t ltypeCount = -1;
  std::vector<int32_t> ltypes;
  int32_t scale = -1;
  int32_t halfWidthFont = -1;
};

NamedTable<ExcludedLayer> Layers(const std::vector<std::string>& names) {
  NamedTable<ExcludedLayer> layers;
  for (const std::string& name : names) {
    ExcludedLayer layer;
    BoundedCopy(layer.name, name.c_str());
    layers.Add(layer);
  }
  return layers;
}

std::vector<std::string> Names(const NamedTable<ExcludedLayer>& layers) {
  std::vector<std::string> names;
  for (const ExcludedLayer& layer : layers) names.push_back(layer.name);
  return names;
}

void Save(CHexlumeApp& app, const char* path, const std::vector<std::string>& layers,
          const std::vector<int32_t>& ltypes, int32_t scale = 1, int32_t halfWidthFont = 0) {
  app.SaveSelection(path, static_cast<int32_t>(layers.size()), Layers(layers),
                    static_cast<int32_t>(ltypes.size()), ltypes, scale, halfWidthFont);
}

void Load(const CHexlumeApp& app, Selection& selection) {
  app.LoadSelection(selection.path, selection.layerCount, selection.layers, selection.ltypeCount,
                    selection.ltypes, selection.scale, selection.halfWidthFont);
}
Selection Load(const CHexlumeApp& app) {
  Selection selection;
  Load(app, selection);
  return selection;
}

using Texts = std::vector<std::string>;
using Families = std::vector<int32_t>;

TEST(HexlumeApp, a_fresh_object_remembers_an_empty_path_and_nothing_else) {
  CHexlumeApp app;
  const Selection loaded = Load(app);
  EXPECT_STREQ("", loaded.path);
  EXPECT_EQ(0, loaded.layerCount);
  EXPECT_EQ(0, loaded.ltypeCount);
  EXPECT_EQ(0, loaded.scale);
  EXPECT_EQ(0, loaded.halfWidthFont);
}

TEST(HexlumeApp, what_was_saved_is_loaded) {
  CHexlumeApp app;
  Save(app, "C:\\plans\\first.dxf", {"WALL", "\x95\xc7"}, {2, 4, 0}, 50, 1);
  const Selection loaded = Load(app);
  EXPECT_STREQ("C:\\plans\\first.dxf", loaded.path);
  EXPECT_EQ(2, loaded.layerCount);
  EXPECT_EQ((Texts{"WALL", "\x95\xc7"}), Names(loaded.layers));
  EXPECT_EQ(3, loaded.ltypeCount);
  EXPECT_EQ((Families{2, 4, 0}), loaded.ltypes);
  EXPECT_EQ(50, loaded.scale);
  EXPECT_EQ(1, loaded.halfWidthFont);
}

TEST(HexlumeApp, every_load_gives_the_same) {
  CHexlumeApp app;
  Save(app, "first.dxf", {"WALL"}, {2});
  Load(app);
  const Selection second = Load(app);
  EXPECT_EQ(Texts{"WALL"}, Names(second.layers));
  EXPECT_EQ(Families{2}, second.ltypes);
}

TEST(HexlumeApp, a_later_save_replaces_an_earlier_one) {
  CHexlumeApp app;
  Save(app, "first.dxf", {"WALL", "AXIS"}, {2, 3}, 50, 1);
  Save(app, "second.dxf", {"DOOR"}, {4}, -7, 0);
  const Selection loaded = Load(app);
  EXPECT_STREQ("second.dxf", loaded.path);
  EXPECT_EQ(1, loaded.layerCount);
  EXPECT_EQ(Texts{"DOOR"}, Names(loaded.layers));
  EXPECT_EQ(1, loaded.ltypeCount);
  EXPECT_EQ(Families{4}, loaded.ltypes);
  EXPECT_EQ(-7, loaded.scale);
  EXPECT_EQ(0, loaded.halfWidthFont);
}

TEST(HexlumeApp, a_save_without_exclusions_behind_one_with_them_excludes_nothing) {
  CHexlumeApp app;
  Save(app, "first.dxf", {"WALL"}, {2});
  Save(app, "second.dxf", {}, {});
  const Selection loaded = Load(app);
  EXPECT_STREQ("second.dxf", loaded.path);
  EXPECT_EQ(0, loaded.layerCount);
  EXPECT_EQ(0, loaded.ltypeCount);
  EXPECT_TRUE(loaded.layers.empty());
  EXPECT_TRUE(loaded.ltypes.empty());
}

TEST(HexlumeApp, a_count_of_0_leaves_the_callers_list) {
  CHexlumeApp app;
  Save(app, "first.dxf", {}, {});
  Selection mine;
  mine.layers = Layers({"MINE"});
  mine.ltypes = {3};
  Load(app, mine);
  EXPECT_EQ(0, mine.layerCount);
  EXPECT_EQ(Texts{"MINE"}, Names(mine.layers));
  EXPECT_EQ(0, mine.ltypeCount);
  EXPECT_EQ(Families{3}, mine.ltypes);
}

TEST(HexlumeApp, each_list_goes_by_its_own_count) {
  CHexlumeApp app;
  Selection mine;
  Save(app, "first.dxf", {"WALL"}, {});
  mine.ltypes = {3};
  Load(app, mine);
  EXPECT_EQ(Texts{"WALL"}, Names(mine.layers));
  EXPECT_EQ(Families{3}, mine.ltypes);

  Save(app, "second.dxf", {}, {1});
  mine.layers = Layers({"MINE"});
  Load(app, mine);
  EXPECT_EQ(Texts{"MINE"}, Names(mine.layers));
  EXPECT_EQ(Families{1}, mine.ltypes);
}

// A layer that isn't offered counts twice and is named once.
TEST(HexlumeApp, a_count_above_the_number_of_names_is_kept) {
  CHexlumeApp app;
  app.SaveSelection("first.dxf", 4, Layers({"WALL", "AXIS"}), 0, {}, 1, 0);
  const Selection loaded = Load(app);
  EXPECT_EQ(4, loaded.layerCount);
  ASSERT_LE(2u, loaded.layers.size());
  EXPECT_STREQ("WALL", loaded.layers[0].name);
  EXPECT_STREQ("AXIS", loaded.layers[1].name);
  for (size_t i = 2; i < loaded.layers.size(); ++i) EXPECT_STREQ("", loaded.layers[i].name);
}

TEST(HexlumeApp, the_lists_are_copies) {
  CHexlumeApp app;
  NamedTable<ExcludedLayer> layers = Layers({"WALL"});
  Families ltypes = {2};
  app.SaveSelection("first.dxf", 1, layers, 1, ltypes, 1, 0);
  layers = Layers({"X"});
  ltypes[0] = 0;
  Selection loaded = Load(app);
  EXPECT_EQ(Texts{"WALL"}, Names(loaded.layers));
  EXPECT_EQ(Families{2}, loaded.ltypes);

  loaded.layers = Layers({"Y"});
  loaded.ltypes.clear();
  EXPECT_EQ(Texts{"WALL"}, Names(Load(app).layers));
  EXPECT_EQ(Families{2}, Load(app).ltypes);
}

TEST(HexlumeApp, the_path_is_given_out_itself) {
  CHexlumeApp app;
  Save(app, "first.dxf", {}, {});
  const char* path = Load(app).path;
  Save(app, "second.dxf", {}, {});
  EXPECT_STREQ("second.dxf", path);
  EXPECT_EQ(path, Load(app).path);
}

TEST(HexlumeApp, a_path_of_259_bytes_is_remembered) {
  CHexlumeApp app;
  const std::string path(259, 'p');
  Save(app, path.c_str(), {}, {});
  EXPECT_EQ(path, Load(app).path);
}

// What the save of a path throws, 0 if nothing.
int32_t ThrownBySave(CHexlumeApp& app, const std::string& path) {
  try {
    Save(app, path.c_str(), {"DOOR"}, {4}, 7, 1);
  } catch (int32_t code) {
    return code;
  }
  return 0;
}

TEST(HexlumeApp, a_path_of_260_bytes_throws_minus_1) {
  CHexlumeApp app;
  EXPECT_EQ(0, ThrownBySave(app, std::string(259, 'p')));
  EXPECT_EQ(-1, ThrownBySave(app, std::string(260, 'p')));
  EXPECT_EQ(-1, ThrownBySave(app, std::string(5000, 'p')));
}

TEST(HexlumeApp, a_save_that_throws_leaves_the_last_one) {
  CHexlumeApp app;
  Save(app, "first.dxf", {"WALL", "AXIS"}, {2, 3}, 50, 0);
  EXPECT_EQ(-1, ThrownBySave(app, std::string(260, 'p')));
  const Selection loaded = Load(app);
  EXPECT_STREQ("first.dxf", loaded.path);
  EXPECT_EQ(2, loaded.layerCount);
  EXPECT_EQ((Texts{"WALL", "AXIS"}), Names(loaded.layers));
  EXPECT_EQ(2, loaded.ltypeCount);
  EXPECT_EQ((Families{2, 3}), loaded.ltypes);
  EXPECT_EQ(50, loaded.scale);
  EXPECT_EQ(0, loaded.halfWidthFont);
}

TEST(HexlumeApp, the_start_clears_the_counts) {
  CHexlumeApp app;
  Save(app, "first.dxf", {"WALL"}, {2});
  app.InitInstance();
  const Selection loaded = Load(app);
  EXPECT_EQ(0, loaded.layerCount);
  EXPECT_EQ(0, loaded.ltypeCount);
  EXPECT_TRUE(loaded.layers.empty());
  EXPECT_TRUE(loaded.ltypes.empty());
}

TEST(HexlumeApp, the_end_gives_the_lists_back) {
  CHexlumeApp app;
  Save(app, "first.dxf", {"WALL"}, {2});
  app.ExitInstance();
  const Selection loaded = Load(app);
  EXPECT_TRUE(loaded.layers.empty());
  EXPECT_TRUE(loaded.ltypes.empty());
}

TEST(HexlumeApp, the_end_without_a_save_does_nothing) {
  CHexlumeApp app;
  app.InitInstance();
  app.ExitInstance();
  EXPECT_STREQ("", Load(app).path);
}

}  // namespace
}  // namespace hexlume::hexlume_app_test
