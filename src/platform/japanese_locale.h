// The C locale that hosts find after a drawing with text.
#pragma once

namespace hexlume {

// On Windows sets the C locale of the process to Japanese, which existing hosts expect after a drawing with
// text. Does nothing on other systems. The library itself doesn't depend on the locale.
void SelectJapaneseLocale();

}  // namespace hexlume
