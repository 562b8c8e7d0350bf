#include "platform/japanese_locale.h"

#include <locale.h>

namespace hexlume {

void SelectJapaneseLocale() {
  setlocale(LC_ALL, "Japanese");
}

}  // namespace hexlume
