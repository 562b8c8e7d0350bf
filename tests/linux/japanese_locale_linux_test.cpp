// The process's locale, which is the host's own here.
#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "platform/japanese_locale.h"
#include "support/host_locale.h"
#include "text/text_font.h"

namespace hexlume::japanese_locale_linux_test {

namespace {

TEST(JapaneseLocaleLinux, a_text_leaves_the_hosts_locale_alone) {
  for (const char* name : {"C", "C.UTF-8", "ja_JP.UTF-8"}) {
    const HostLocale selected(name);
    const std::string before = std::setlocale(LC_ALL, nullptr);
    SelectJapaneseLocale();
    ClassifyText("A");
    EXPECT_EQ(before, std::setlocale(LC_ALL, nullptr));
  }
}

}  // namespace

}  // namespace hexlume::japanese_locale_linux_test
