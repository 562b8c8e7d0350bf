// The locale of the text converters.
#pragma once

namespace hexlume {

// On Windows makes the C locale of the process Japanese, as hosts have always found it after a drawing with
// text. Elsewhere the process's locale is left alone: nothing here depends on it.
void SelectJapaneseLocale();

}  // namespace hexlume
