#include "text/text_strings.h"

namespace hexlume {

void ExpandPercentCodes() {}

void ExpandBlockPercentCodes() {}

void ExpandDimInsertPercentCodes() {}

void StripBraceCodes() {}

void StripBlockBraceCodes() {}

void StripSpaceAndParens() {}

void StripBlockSpaceAndParens() {}

void StripFullWidthSpace() {}

void WidenEmptyBrackets() {}

void ParseFontScales(double& width, double& tracking, double& oblique) {}

void ParseBlockFontScales(double& width, double& tracking, double& oblique) {}

void ExtractFontName() {}

void ExtractBlockFontName() {}

}  // namespace hexlume
