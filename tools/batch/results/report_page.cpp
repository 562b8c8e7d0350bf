// The page of HTML: one file, which needs no other but the pictures that it shows.
#include <ostream>

#include "tools/batch/base/text.h"
#include "tools/batch/plan/folder.h"
#include "tools/batch/results/progress.h"
#include "tools/batch/results/report.h"
#include "tools/batch/results/result_walk.h"
#include "tools/hexlume/system/path_text.h"

namespace hexlume::batch {
namespace {

constexpr size_t mostFailed = 5000;
constexpr size_t mostConverted = 1000;

constexpr const char* pageStart = R"(<!doctype html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Drawings</title>
<style>
body { font: 15px/1.5 sans-serif; margin: 2em auto; max-width: 75em; padding: 0 1em; color: #222; background: #fff }
table { border-collapse: collapse; margin: 0 0 2em }
th, td { text-align: left; padding: .2em 1.5em .2em 0; border-bottom: 1px solid #ddd; vertical-align: top }
td.n { text-align: right }
td.path { font-family: monospace; white-space: pre-wrap; overflow-wrap: anywhere }
.bar { display: flex; height: 1em; background: #ddd; margin: 0 0 2em }
.bar .done { background: #2a7d4f }
.bar .failed { background: #b3372f }
input { font: inherit; width: 25em; max-width: 100%; margin: 0 0 1em }
.pictures { display: flex; flex-wrap: wrap; gap: 1em }
.pictures a { width: 10em; overflow-wrap: anywhere; color: inherit; font-size: 12px }
.pictures img { display: block; max-width: 10em; max-height: 10em; border: 1px solid #ddd }
</style>
</head>
<body>
)";

constexpr const char* pageEnd = R"(<script>
document.querySelectorAll("input").forEach(function (field) {
  field.addEventListener("input", function () {
    const words = field.value.toLowerCase();
    document.querySelectorAll(field.dataset.rows).forEach(function (row) {
      row.hidden = !row.textContent.toLowerCase().includes(words);
    });
  });
});
</script>
</body>
</html>
)";

void WriteNumbers(const BatchProgress& progress, std::ostream& out) {
  out << "<h1>" << progress.done << " of " << progress.drawings << " drawings are converted</h1>\n";
  const auto part = [&progress](int64_t count) {
    return static_cast<double>(count) * 100 / static_cast<double>(std::max<int64_t>(progress.drawings, 1));
  };
  out << "<div class=\"bar\"><div class=\"done\" style=\"width:" << part(progress.done)
      << "%\"></div><div class=\"failed\" style=\"width:" << part(progress.failed)
      << "%\"></div></div>\n<table>\n";
  const auto row = [&out](const std::string& name, int64_t count) {
    out << "<tr><th>" << Escaped(name) << "</th><td class=\"n\">" << count << "</td></tr>\n";
  };
  for (const auto& [status, count] : progress.statuses) row(status, count);
  if (progress.left > 0) row(leftStatus, progress.left);
  out << "</table>\n";
}

class PageRows {
 public:
  explicit PageRows(const Plan& plan) : kinds(plan.Kinds()) {}

  void Take(const DrawingLine& line) {
    const std::string status = line.result.at("status");
    if (status == "ok")
      AddConverted(line);
    else if (status != leftStatus)
      AddFailed(line, status);
  }

  void Write(std::ostream& out) const {
    if (failedCount > 0) {
      out << "<h2>Failed</h2>\n<input data-rows=\"#failed tr\" placeholder=\"Find\" aria-label=\"Find\">\n"
          << "<table id=\"failed\">\n"
          << failed << "</table>\n";
      WriteMore(failedCount, mostFailed, "report --failed", out);
    }
    if (convertedCount > 0) {
      out << "<h2>Converted</h2>\n<input data-rows=\"#converted a\" placeholder=\"Find\" "
             "aria-label=\"Find\">\n"
          << "<div id=\"converted\" class=\"pictures\">\n"
          << converted << "</div>\n";
      WriteMore(convertedCount, mostConverted, "report", out);
    }
  }

 private:
  static void WriteMore(size_t count, size_t most, const char* command, std::ostream& out) {
    if (count > most)
      out << "<p>and " << count - most << " more: <code>hexlume-batch " << command << "</code></p>\n";
  }

  void AddFailed(const DrawingLine& line, const std::string& status) {
    if (++failedCount > mostFailed) return;
    failed += "<tr><td class=\"path\">" + Escaped(line.drawing.path) + "</td><td>" + Escaped(status) +
              "</td><td>" + Escaped(line.result.at("message")) + "</td></tr>\n";
  }

  // A link to the first output, with the picture where there is one that a browser shows.
  void AddConverted(const DrawingLine& line) {
    if (++convertedCount > mostConverted) return;
    const std::string place = PercentEncoded(Joined(outputsName, line.drawing.place));
    converted += "<a href=\"" + place + '.' + kinds.front() + "\">";
    for (const char* const shown : {"png", "svg"}) {
      if (std::find(kinds.begin(), kinds.end(), shown) == kinds.end()) continue;
      converted += "<img loading=\"lazy\" alt=\"\" src=\"" + place + '.' + shown + "\">";
      break;
    }
    converted += Escaped(line.drawing.place) + "</a>\n";
  }

  const std::vector<std::string> kinds;
  std::string failed, converted;
  size_t failedCount = 0, convertedCount = 0;
};

}  // namespace

void WritePage(const Plan& plan, std::ostream& out) {
  PageRows rows(plan);
  WalkResults(plan, [&rows](const DrawingLine& line) { rows.Take(line); });
  out << pageStart;
  WriteNumbers(ProgressOf(plan), out);
  rows.Write(out);
  out << pageEnd;
}

}  // namespace hexlume::batch
