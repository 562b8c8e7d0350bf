// Arguments that are none: each gives its status and a sentence that names it.
#include <gtest/gtest.h>

#include <cstring>

#include "hexlume_host.hpp"
#include "host/host_drawings.h"

namespace hexlume {
namespace {

class HostArguments : public testing::Test {
 protected:
  // The status of a conversion; its message in `message`.
  int32_t Call() {
    hexlume_result* result = nullptr;
    const int32_t status = hexlume_convert(&input, &options, &result);
    EXPECT_EQ(status, hexlume_result_status(result));
    message = hexlume_result_message(result, HEXLUME_ENGLISH);
    hexlume_result_free(result);
    hexlume_result* inspected = nullptr;
    EXPECT_EQ(status, hexlume_inspect(&input, &options, &inspected));
    hexlume_result_free(inspected);
    return status;
  }

  void ExpectBad(const std::string& rest) {
    EXPECT_EQ(HEXLUME_STATUS_BAD_ARGUMENT, Call());
    EXPECT_EQ("An argument is wrong: " + rest + ".", message);
  }

  // Sets a number of the options for one call.
  void ExpectBadNumber(int32_t& field, int32_t value, const std::string& rest) {
    field = value;
    ExpectBad(rest);
    field = 0;
  }

  const std::string drawing = A3(Line());
  hexlume_input input = host::BytesInput(drawing);
  host::Options options;
  std::string message;
};

TEST_F(HostArguments, the_defaults_are_good) {
  EXPECT_EQ(HEXLUME_STATUS_OK, Call());
}

TEST_F(HostArguments, null_is_answered) {
  hexlume_result* result = nullptr;
  EXPECT_EQ(HEXLUME_STATUS_BAD_ARGUMENT, hexlume_convert(nullptr, &options, &result));
  EXPECT_STREQ("An argument is wrong: input must not be NULL.", hexlume_result_message(result, 0));
  hexlume_result_free(result);
  EXPECT_EQ(HEXLUME_STATUS_BAD_ARGUMENT, hexlume_convert(&input, &options, nullptr));
  EXPECT_EQ(HEXLUME_STATUS_BAD_ARGUMENT, hexlume_inspect(&input, &options, nullptr));
  EXPECT_EQ(HEXLUME_STATUS_OK, hexlume_convert(&input, nullptr, &result));
  hexlume_result_free(result);
  hexlume_options_init(nullptr, 100);
}

TEST_F(HostArguments, functions_on_a_result_take_null) {
  EXPECT_EQ(0, hexlume_result_status(nullptr));
  EXPECT_EQ(nullptr, hexlume_result_message(nullptr, 0));
  EXPECT_EQ(0, hexlume_result_line(nullptr));
  EXPECT_EQ(nullptr, hexlume_result_metafile(nullptr));
  EXPECT_EQ(0, hexlume_result_metafile_size(nullptr));
  EXPECT_EQ(nullptr, hexlume_result_handle(nullptr));
  EXPECT_EQ(0, hexlume_result_number(nullptr, HEXLUME_NUMBER_STROKES));
  EXPECT_EQ(nullptr, hexlume_result_remark(nullptr, 0));
  EXPECT_EQ(nullptr, hexlume_result_summary(nullptr));
  EXPECT_EQ(nullptr, hexlume_result_layer(nullptr, 0));
  EXPECT_EQ(nullptr, hexlume_result_line_type(nullptr, 0));
  EXPECT_EQ(nullptr, hexlume_result_dim_style(nullptr, 0));
  EXPECT_EQ(nullptr, hexlume_result_block(nullptr, 0));
  EXPECT_EQ(nullptr, hexlume_result_entities(nullptr, 0));
  EXPECT_EQ(nullptr, hexlume_result_text(nullptr, 0));
  hexlume_result_free(nullptr);
}

TEST_F(HostArguments, indices_and_numbers_out_of_range_give_nothing) {
  const host::Result result = host::InspectBytes(drawing);
  hexlume_result* raw = nullptr;
  ASSERT_EQ(HEXLUME_STATUS_OK, hexlume_inspect(&input, nullptr, &raw));
  for (const int64_t index : {int64_t{-1}, int64_t{1} << 40, INT64_MIN, INT64_MAX}) {
    EXPECT_EQ(nullptr, hexlume_result_entities(raw, index));
    EXPECT_EQ(nullptr, hexlume_result_remark(raw, index));
  }
  EXPECT_EQ(0, hexlume_result_number(raw, -1));
  EXPECT_EQ(0, hexlume_result_number(raw, 1000));
  EXPECT_STREQ(hexlume_result_message(raw, HEXLUME_ENGLISH), hexlume_result_message(raw, 77));
  hexlume_result_free(raw);
}

TEST_F(HostArguments, a_short_struct) {
  const std::string size = std::to_string(sizeof(hexlume_options));
  for (const uint32_t given :
       {0u, 3u, static_cast<uint32_t>(sizeof(hexlume_options)) - 1, 5000u, UINT32_MAX}) {
    options.size = given;
    ExpectBad("options.size must be the size of the struct, " + size);
  }
  hexlume_options_init(&options, sizeof(hexlume_options));
  input.size = 0;
  ExpectBad("input.size must be the size of the struct, " + std::to_string(sizeof(hexlume_input)));
}

// A host that was built for a later version of the library.
TEST_F(HostArguments, a_longer_struct_is_good_if_the_rest_is_0) {
  unsigned char longer[sizeof(hexlume_options) + 64];
  hexlume_options_init(reinterpret_cast<hexlume_options*>(longer), sizeof longer);
  hexlume_result* result = nullptr;
  EXPECT_EQ(HEXLUME_STATUS_OK, hexlume_convert(&input, reinterpret_cast<hexlume_options*>(longer), &result));
  hexlume_result_free(result);
  longer[sizeof longer - 1] = 1;
  EXPECT_EQ(HEXLUME_STATUS_BAD_ARGUMENT,
            hexlume_convert(&input, reinterpret_cast<hexlume_options*>(longer), &result));
  EXPECT_STREQ("An argument is wrong: options has options that this version of the library doesn't know.",
               hexlume_result_message(result, 0));
  hexlume_result_free(result);
}

TEST_F(HostArguments, numbers_out_of_range) {
  ExpectBadNumber(options.format, 2, "options.format must be from 0 to 1");
  ExpectBadNumber(options.format, -1, "options.format must be from 0 to 1");
  ExpectBadNumber(options.sheet, 3, "options.sheet must be from 0 to 2");
  ExpectBadNumber(options.turned, 2, "options.turned must be from 0 to 1");
  ExpectBadNumber(options.whole_texts, -1, "options.whole_texts must be from 0 to 1");
  ExpectBadNumber(options.monochrome, 7, "options.monochrome must be from 0 to 1");
  ExpectBadNumber(options.half_width, 2, "options.half_width must be from 0 to 1");
  ExpectBadNumber(options.fit, 2, "options.fit must be from 0 to 1");
  ExpectBadNumber(options.denominator, 1001, "options.denominator must be from 0 to 1000");
  ExpectBadNumber(options.denominator, -1, "options.denominator must be from 0 to 1000");
  ExpectBadNumber(options.skip_off_layers, 2, "options.skip_off_layers must be from 0 to 1");
  options.hidden_line_types = 32;
  ExpectBad("options.hidden_line_types must be from 0 to 31");
}

TEST_F(HostArguments, limits_below_0) {
  options.limit_milliseconds = -1;
  ExpectBad("options.limit_milliseconds must not be negative");
  options.limit_milliseconds = 0;
  options.limit_strokes = -1;
  ExpectBad("options.limit_strokes must not be negative");
  options.limit_strokes = 0;
  options.limit_bytes = INT64_MIN;
  ExpectBad("options.limit_bytes must not be negative");
}

TEST_F(HostArguments, options_that_exclude_each_other) {
  options.whole_texts = 1;
  ExpectBad("options.whole_texts is for a part of the sheet only");
  options.sheet = HEXLUME_SHEET_PART;
  EXPECT_EQ(HEXLUME_STATUS_OK, Call());
  options.turned = 1;
  ExpectBad("options.turned must be 0 for a part of the sheet");
}

TEST_F(HostArguments, layers_that_are_no_texts) {
  options.hidden_layer_count = 1;
  ExpectBad("options.hidden_layers must not be NULL");
  const char* names[] = {"A", nullptr};
  options.hidden_layers = names;
  options.hidden_layer_count = 2;
  ExpectBad("options.hidden_layers[1] must be a text in UTF-8");
  names[1] = "\x83\x8C";  // code page 932
  ExpectBad("options.hidden_layers[1] must be a text in UTF-8");
  options.hidden_layer_count = -1;
  ExpectBad("options.hidden_layer_count must not be negative");
}

TEST_F(HostArguments, inputs_that_are_none) {
  input.path = "a.dxf";
  ExpectBad("input must have either a path or bytes");
  input.path = nullptr;
  input.bytes = nullptr;
  ExpectBad("input must have either a path or bytes");
  input = host::BytesInput(drawing);
  input.byte_count = -1;
  ExpectBad("input.byte_count must not be negative");
  input = host::BytesInput(drawing);
  input.reserved = 1;
  ExpectBad("input.reserved must be 0");
}

TEST_F(HostArguments, a_path_with_a_byte_0) {
  const std::string path("a\0b.dxf", 7);
  input = host::FileInput(path);
  ExpectBad("input.path must have no byte 0");
  input.path_length = -1;
  ExpectBad("input.path_length must be the length of the path");
}

TEST_F(HostArguments, a_path_that_is_not_closed_has_its_length) {
  const TemporaryFile file(drawing);
  const std::string longer = std::string(file.Path()) + "rest";
  input = {};
  input.size = sizeof input;
  input.path = longer.c_str();
  input.path_length = static_cast<int64_t>(std::strlen(file.Path()));
  EXPECT_EQ(HEXLUME_STATUS_OK, Call());
}

TEST_F(HostArguments, init_sets_the_size_and_the_defaults) {
  hexlume_options set;
  std::memset(&set, 0xFF, sizeof set);
  hexlume_options_init(&set, sizeof set);
  EXPECT_EQ(sizeof set, set.size);
  const auto* const bytes = reinterpret_cast<const unsigned char*>(&set);
  for (size_t i = sizeof set.size; i < sizeof set; ++i) EXPECT_EQ(0, bytes[i]) << i;
}

TEST(HostVersion, is_the_projects) {
  EXPECT_EQ(HEXLUME_VERSION_NUMBER, hexlume_version());
}

}  // namespace
}  // namespace hexlume
