// Limits, cancelling and progress.
#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <stdexcept>
#include <vector>

#include "hexlume_host.hpp"
#include "host/host_drawings.h"

namespace hexlume {
namespace {

using host::ConvertBytes;
using host::Options;

// A line of dashes and gaps of a millimetre over 400 mm.
std::string Dashed() {
  return DrawingBytes(
      a3Header +
      "0 SECTION\n2 TABLES\n0 TABLE\n2 LTYPE\n0 LTYPE\n2 DASHED\n73 2\n49 1\n49 -1\n0 ENDTAB\n"
      "0 TABLE\n2 LAYER\n0 LAYER\n2 0\n70 0\n62 7\n0 ENDTAB\n0 ENDSEC\n"
      "0 SECTION\n2 ENTITIES\n0 LINE\n8 0\n6 DASHED\n10 0\n20 0\n11 400\n21 0\n" +
      Line() + end);
}

// A hatch of lines 1 mm apart over the whole sheet.
std::string Hatched() {
  return A3(
      "0 HATCH\n8 0\n10 0\n20 0\n30 0\n210 0\n220 0\n230 1\n2 LINES\n70 0\n71 0\n91 1\n92 2\n72 0\n73 1\n93 "
      "4\n"
      "10 0\n20 0\n10 400\n20 0\n10 400\n20 280\n10 0\n20 280\n97 0\n75 0\n76 1\n52 0\n41 1\n77 0\n78 1\n53 "
      "0\n"
      "43 0\n44 0\n45 0\n46 1\n79 0\n98 0\n");
}

// Block A of level 0 is a line, each further one inserts the one before it twice: 2^25 lines in all.
std::string Nested() {
  std::string blocks = "0 BLOCK\n2 B0\n10 0\n20 0\n3 B0\n" + Line() + "0 ENDBLK\n";
  for (int32_t level = 1; level <= 25; ++level) {
    const std::string inner = "0 INSERT\n2 B" + std::to_string(level - 1) + "\n10 0\n20 0\n";
    blocks += "0 BLOCK\n2 B" + std::to_string(level) + "\n10 0\n20 0\n3 x\n" + inner + inner + "0 ENDBLK\n";
  }
  return DrawingBytes(a3Header + "0 SECTION\n2 BLOCKS\n" + blocks + "0 ENDSEC\n0 SECTION\n2 ENTITIES\n" +
                      "0 INSERT\n2 B25\n10 0\n20 0\n" + end);
}

// Records of a metafile, its bytes and the count that its header has.
struct Records {
  uint32_t bytes, count, walked;
};
Records RecordsOf(std::string_view metafile) {
  Records records = {};
  std::memcpy(&records.bytes, metafile.data() + 48, 4);
  std::memcpy(&records.count, metafile.data() + 52, 4);
  for (size_t at = 0; at < metafile.size(); ++records.walked) {
    uint32_t size;
    std::memcpy(&size, metafile.data() + at + 4, 4);
    at += size;
  }
  return records;
}

TEST(HostLimits, strokes_end_the_drawing_and_what_was_drawn_stays) {
  Options options;
  options.limit_strokes = 3;
  const host::Result result = ConvertBytes(A3(Lines(10)), options);
  EXPECT_EQ("limit", result.StatusName());
  EXPECT_EQ(3u, Count(Listing(result.Metafile()), "LineTo"));
  EXPECT_EQ(3, result.Number(HEXLUME_NUMBER_STROKES));
  // 18 lines of the header, 4 of the section, 10 of each line: the fourth begins in the next one.
  EXPECT_EQ(18 + 4 + 3 * 10 + 1, result.Line());
  EXPECT_EQ("Line 53: The limit limit_strokes was reached.", result.Message());
}

TEST(HostLimits, strokes_fewer_than_the_limit_end_nothing) {
  Options options;
  options.limit_strokes = 11;
  const host::Result result = ConvertBytes(A3(Lines(10)), options);
  EXPECT_TRUE(result);
  EXPECT_EQ(10, result.Number(HEXLUME_NUMBER_STROKES));
}

// A polyline is read to its end, so that none of its segments is made of half a vertex.
TEST(HostLimits, the_polyline_at_hand_is_drawn_to_its_end) {
  std::string polyline = "0 POLYLINE\n66 1\n70 1\n";
  for (int32_t i = 0; i < 10; ++i)
    polyline += "0 VERTEX\n10 " + std::to_string(10 * i) + "\n20 " + std::to_string(i * i) + "\n";
  polyline += "0 SEQEND\n";
  Options options;
  options.limit_strokes = 3;
  const std::string whole(ConvertBytes(A3(polyline)).Metafile());
  const host::Result result = ConvertBytes(A3(polyline + Lines(5)), options);
  EXPECT_EQ("limit", result.StatusName());
  EXPECT_EQ(Listing(whole), Listing(result.Metafile()));
}

// 100,000 vertices aren't.
TEST(HostLimits, an_entity_of_any_length_is_cut) {
  std::string polyline = "0 LWPOLYLINE\n70 0\n";
  for (int32_t i = 0; i < 100000; ++i)
    polyline += "10 " + std::to_string(i % 400) + "\n20 " + std::to_string(i % 290) + "\n";
  Options options;
  options.limit_strokes = 3;
  const host::Result result = ConvertBytes(A3(polyline), options);
  EXPECT_EQ("limit", result.StatusName());
  EXPECT_LT(3, result.Number(HEXLUME_NUMBER_STROKES));
  EXPECT_GT(6000, result.Number(HEXLUME_NUMBER_STROKES));
}

// The pen is one stroke, each dash is another.
TEST(HostLimits, strokes_end_a_walk_along_dashes) {
  Options options;
  options.limit_strokes = 10;
  const host::Result result = ConvertBytes(Dashed(), options);
  EXPECT_EQ("limit", result.StatusName());
  EXPECT_EQ(9u, Count(Listing(result.Metafile()), "LineTo"));
  EXPECT_LT(200u, Count(Listing(ConvertBytes(Dashed()).Metafile()), "LineTo"));
}

TEST(HostLimits, strokes_end_a_hatch) {
  Options options;
  options.limit_strokes = 10;
  const host::Result result = ConvertBytes(Hatched(), options);
  EXPECT_EQ("limit", result.StatusName());
  EXPECT_EQ(9u, Count(Listing(result.Metafile()), "LineTo"));
  EXPECT_LT(200u, Count(Listing(ConvertBytes(Hatched()).Metafile()), "LineTo"));
}

TEST(HostLimits, strokes_end_blocks_within_blocks) {
  Options options;
  options.limit_strokes = 1000;
  const host::Result result = ConvertBytes(Nested(), options);
  EXPECT_EQ("limit", result.StatusName());
  EXPECT_EQ(1000u, Count(Listing(result.Metafile()), "LineTo"));
}

// Its bound of bytes would end this drawing after some 300 ms.
TEST(HostLimits, time_ends_blocks_within_blocks) {
  Options options;
  options.limit_milliseconds = 100;
  const host::Result result = ConvertBytes(Nested(), options);
  EXPECT_EQ("limit", result.StatusName());
  EXPECT_NE(std::string::npos, result.Message().find("limit_milliseconds"));
  EXPECT_LT(10000u, result.Metafile().size());
  EXPECT_LE(100, result.Number(HEXLUME_NUMBER_MILLISECONDS));
}

// The first of the two conversions has half of the time, so that there is some left to turn the drawing.
TEST(HostLimits, time_leaves_a_turned_drawing_its_share) {
  Options options;
  options.limit_milliseconds = 200;
  options.turned = 1;
  const host::Result result = ConvertBytes(Nested(), options);
  EXPECT_EQ("limit", result.StatusName());
  EXPECT_LT(10000u, result.Metafile().size());
  EXPECT_LE(200, result.Number(HEXLUME_NUMBER_MILLISECONDS));
}

// The upright sheet gives the turned one its scale and what is left out, so it must have been measured whole. Here the
// first half of the time ends while it is.
TEST(HostLimits, time_that_ends_the_first_measuring_ends_the_call) {
  Options options;
  options.limit_milliseconds = 4000;
  options.turned = 1;
  options.fit = 1;
  const std::string drawing = A3(Lines(100000));
  const auto pastHalf = std::chrono::steady_clock::now() + std::chrono::milliseconds(2200);
  options.OnProgress([pastHalf](int32_t pass, int32_t, int64_t done, int64_t) {
    while (pass == 1 && done > 0 && std::chrono::steady_clock::now() < pastHalf) continue;
    return true;
  });
  const host::Result result = ConvertBytes(drawing, options);
  EXPECT_EQ("limit", result.StatusName());
  EXPECT_TRUE(result.Metafile().empty());
}

TEST(HostLimits, time_ends_an_inspection) {
  Options options;
  options.limit_milliseconds = 1;
  const host::Result result = host::InspectBytes(A3(Lines(300000)), options);
  EXPECT_EQ("limit", result.StatusName());
  // No entity is counted that wasn't read: each line is on a layer without a name.
  for (const hexlume_entities& row : result.Entities()) EXPECT_STREQ("LINE", row.kind);
}

// Every length up to the whole metafile: it is cut after a whole record and closed again.
TEST(HostLimits, bytes_cut_the_metafile_after_a_whole_record) {
  const std::string drawing = A3(Lines(3));
  const host::Result whole = ConvertBytes(drawing);
  const std::string_view wholeBytes = whole.Metafile();
  size_t longest = 0;
  for (size_t limit = 1; limit < wholeBytes.size(); limit += 4) {
    Options options;
    options.limit_bytes = static_cast<int64_t>(limit);
    const host::Result result = ConvertBytes(drawing, options);
    EXPECT_EQ("limit", result.StatusName());
    const std::string_view cut = result.Metafile();
    EXPECT_LE(cut.size(), limit);
    EXPECT_LE(longest, cut.size());
    longest = cut.size();
    if (cut.empty()) continue;
    const Records records = RecordsOf(cut);
    EXPECT_EQ(cut.size(), records.bytes);
    EXPECT_EQ(records.walked, records.count);
    EXPECT_EQ(0u, Listing(whole.Metafile()).find(Listing(cut)));
    constexpr size_t endRecordSize = 20;
    EXPECT_EQ(wholeBytes.substr(60, cut.size() - endRecordSize - 60),
              cut.substr(60, cut.size() - endRecordSize - 60));
  }
  EXPECT_LT(wholeBytes.size() - 100, longest);
  Options options;
  options.limit_bytes = static_cast<int64_t>(wholeBytes.size());
  EXPECT_EQ(wholeBytes, ConvertBytes(drawing, options).Metafile());
}

// One of more than 1 MB isn't copied, and is cut in its place: 20,000 lines are 1.9 MB.
TEST(HostLimits, bytes_cut_a_large_metafile_too) {
  const std::string drawing = A3(Lines(20000));
  const host::Result whole = ConvertBytes(drawing);
  EXPECT_LT(1u << 20, whole.Metafile().size());
  Options options;
  options.limit_bytes = static_cast<int64_t>(whole.Metafile().size()) - 1;
  const host::Result result = ConvertBytes(drawing, options);
  EXPECT_EQ("limit", result.StatusName());
  const std::string_view cut = result.Metafile();
  EXPECT_LT(whole.Metafile().size() - 100, cut.size());
  EXPECT_GE(static_cast<size_t>(options.limit_bytes), cut.size());
  const Records records = RecordsOf(cut);
  EXPECT_EQ(cut.size(), records.bytes);
  EXPECT_EQ(records.walked, records.count);
  EXPECT_EQ(whole.Metafile().substr(60, cut.size() - 80), cut.substr(60, cut.size() - 80));
}

// 2^25 lines aren't drawn to be cut away again.
TEST(HostLimits, bytes_end_the_drawing_early) {
  Options options;
  options.limit_bytes = 100000;
  const host::Result result = ConvertBytes(Nested(), options);
  EXPECT_EQ("limit", result.StatusName());
  EXPECT_GE(100000u, result.Metafile().size());
  EXPECT_LT(99800u, result.Metafile().size());
  EXPECT_GE(100000 / 16 + 256, result.Number(HEXLUME_NUMBER_STROKES));
  EXPECT_EQ(0, result.Line());
  EXPECT_EQ("The limit limit_bytes was reached.", result.Message());
}

struct Report {
  int32_t pass, passes;
  int64_t done, total;
};

std::vector<Report> ReportsOf(const std::string& drawing, Options options) {
  std::vector<Report> reports;
  options.OnProgress([&](int32_t pass, int32_t passes, int64_t done, int64_t total) {
    reports.push_back({pass, passes, done, total});
    return true;
  });
  EXPECT_TRUE(ConvertBytes(drawing, options));
  return reports;
}

void ExpectSoundReports(const std::vector<Report>& reports, int32_t passes, size_t size) {
  ASSERT_FALSE(reports.empty());
  EXPECT_EQ(1, reports.front().pass);
  EXPECT_EQ(0, reports.front().done);
  EXPECT_EQ(passes, reports.back().pass);
  EXPECT_EQ(reports.back().total, reports.back().done);
  for (size_t i = 0; i < reports.size(); ++i) {
    EXPECT_EQ(passes, reports[i].passes);
    EXPECT_EQ(static_cast<int64_t>(size), reports[i].total);
    if (i == 0) continue;
    if (reports[i].pass == reports[i - 1].pass)
      EXPECT_GE(reports[i].done, reports[i - 1].done);
    else
      EXPECT_EQ(0, reports[i].done);
  }
}

TEST(HostProgress, goes_from_the_start_of_the_first_pass_to_the_end_of_the_last) {
  const std::string drawing = A3(Lines(100));
  ExpectSoundReports(ReportsOf(drawing, {}), 2, drawing.size());
  Options turned;
  turned.turned = 1;
  ExpectSoundReports(ReportsOf(drawing, turned), 4, drawing.size());
}

// Longer than the time between two reports.
TEST(HostProgress, is_told_within_a_pass) {
  const std::string drawing = A3(Lines(200000));
  const std::vector<Report> reports = ReportsOf(drawing, {});
  ExpectSoundReports(reports, 2, drawing.size());
  EXPECT_LT(4u, reports.size());
}

// Cancelled in the middle of a pass, at the first report that isn't its start.
TEST(HostProgress, a_cancel_in_the_middle_ends_after_a_whole_entity) {
  const std::string drawing = A3(Lines(400000));
  Options options;
  options.OnProgress([](int32_t pass, int32_t, int64_t done, int64_t) { return pass == 1 || done == 0; });
  const host::Result result = ConvertBytes(drawing, options);
  EXPECT_EQ("cancelled", result.StatusName());
  const auto lines = static_cast<int64_t>(Count(Listing(result.Metafile()), "LineTo"));
  EXPECT_LT(0, lines);
  EXPECT_GT(400000, lines);
  // 18 lines of the header, 4 of the section, 10 of each line.
  EXPECT_EQ(18 + 4 + 10 * lines + 1, result.Line());
}

host::Result CancelledIn(int32_t cancelledPass, Options options = {}) {
  options.OnProgress([=](int32_t pass, int32_t, int64_t, int64_t) { return pass != cancelledPass; });
  return ConvertBytes(A3(Lines(10)), options);
}

TEST(HostProgress, a_cancel_while_the_sheet_is_measured_gives_no_metafile) {
  const host::Result result = CancelledIn(1);
  EXPECT_EQ("cancelled", result.StatusName());
  EXPECT_TRUE(result.Metafile().empty());
}

TEST(HostProgress, a_cancel_while_the_sheet_is_drawn_keeps_what_was_drawn) {
  const host::Result result = CancelledIn(2);
  EXPECT_EQ("cancelled", result.StatusName());
  EXPECT_EQ("Frame(0, 0, 42000, 29700)\n", Listing(result.Metafile()));
}

TEST(HostProgress, a_cancel_of_a_turned_sheet_never_gives_the_upright_one) {
  Options turned;
  turned.turned = 1;
  for (int32_t pass = 1; pass <= 3; ++pass) {
    const host::Result result = CancelledIn(pass, turned);
    EXPECT_EQ("cancelled", result.StatusName());
    EXPECT_TRUE(result.Metafile().empty()) << pass;
  }
  EXPECT_FALSE(CancelledIn(4, turned).Metafile().empty());
}

TEST(HostProgress, a_cancel_at_the_end_has_the_whole_drawing) {
  Options options;
  options.OnProgress([](int32_t pass, int32_t, int64_t done, int64_t) { return pass != 2 || done == 0; });
  const host::Result result = ConvertBytes(A3(Lines(10)), options);
  EXPECT_EQ("cancelled", result.StatusName());
  EXPECT_EQ(10u, Count(Listing(result.Metafile()), "LineTo"));
}

TEST(HostProgress, the_library_does_not_answer_from_within) {
  int32_t inner = -1;
  Options options;
  options.OnProgress([&](int32_t, int32_t, int64_t, int64_t) {
    inner = ConvertBytes("0").Status();
    return true;
  });
  EXPECT_TRUE(ConvertBytes(A3(Line()), options));
  EXPECT_EQ(HEXLUME_STATUS_BAD_ARGUMENT, inner);
  EXPECT_TRUE(ConvertBytes(A3(Line())));
}

TEST(HostProgress, an_exception_of_a_cxx_host_goes_on_to_its_caller) {
  Options options;
  options.OnProgress([](int32_t, int32_t, int64_t, int64_t) -> bool { throw std::runtime_error("stop"); });
  EXPECT_THROW(ConvertBytes(A3(Line()), options), std::runtime_error);
  EXPECT_TRUE(ConvertBytes(A3(Line())));
}

}  // namespace
}  // namespace hexlume
