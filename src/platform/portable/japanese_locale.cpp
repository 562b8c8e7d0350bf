#include "platform/japanese_locale.h"

namespace hexlume {

void SelectJapaneseLocale() {}

}  // namespace hexlume
