#include "driver/pre_scan.h"

#include <algorithm>
#include <cstring>

#include "driver/bounded_copy.h"
#include "driver/group_reader.h"

namespace hexlume {

namespace {

// HEADER

// A header variable: the flag that it was found, and a function that stores its groups.
struct HeaderVariable {
  const char* name;
  int32_t HeaderVars::*seen;  // null if the flag isn't needed
  void (*store)(HeaderVars& headerVars, int32_t code, const char* value);
};

void StorePoint(double& x, double& y, int32_t code, const char* value) {
  if (code == 10) x = Atof(value);
  if (code == 20) y = Atof(value);
}

const HeaderVariable headerVariables[] = {
    {"$DIMSCALE", &HeaderVars::dimScaleSet,
     [](HeaderVars& vars, int32_t code, const char* value) {
       if (code == 40) vars.dimScale = Atof(value);
     }},
    {"$LIMMAX", &HeaderVars::limMaxSet,
     [](HeaderVars& vars, int32_t code, const char* value) {
       StorePoint(vars.limMaxX, vars.limMaxY, code, value);
     }},
    {"$LIMMIN", &HeaderVars::limMinSet,
     [](HeaderVars& vars, int32_t code, const char* value) {
       StorePoint(vars.limMinX, vars.limMinY, code, value);
     }},
    {"$EXTMAX", &HeaderVars::extMaxSet,
     [](HeaderVars& vars, int32_t code, const char* value) {
       StorePoint(vars.extMaxX, vars.extMaxY, code, value);
     }},
    {"$EXTMIN", &HeaderVars::extMinSet,
     [](HeaderVars& vars, int32_t code, const char* value) {
       StorePoint(vars.extMinX, vars.extMinY, code, value);
     }},
    {"$LTSCALE", &HeaderVars::ltScaleSet,
     [](HeaderVars& vars, int32_t code, const char* value) {
       if (code == 40) vars.ltScale = Atof(value);
     }},
    {"$PDMODE", nullptr,
     [](HeaderVars& vars, int32_t code, const char* value) {
       if (code == 70) vars.pdMode = Atoi(value);
     }},
    {"$PDSIZE", nullptr,
     [](HeaderVars& vars, int32_t code, const char* value) {
       // Read as an integer: the fraction is lost, so 0.5 counts as 0.
       if (code == 40) vars.pdSize = Atoi(value);
     }},
};

const HeaderVariable* FindHeaderVariable(const char* name) {
  const auto found =
      std::find_if(std::begin(headerVariables), std::end(headerVariables),
                   [name](const HeaderVariable& variable) { return std::strcmp(variable.name, name) == 0; });
  return found == std::end(headerVariables) ? nullptr : found;
}

// Expects the name of a variable (code 9) in the buffer. Leaves the next name or the next group with
// code 0 there.
int32_t ReadHeaderVariable(TextStream& stream, HeaderVars& headerVars) {
  const HeaderVariable* variable = FindHeaderVariable(state.groupValue);
  int32_t more = ReadGroup(stream);
  if (!variable) return more;
  if (variable->seen) headerVars.*variable->seen = 1;
  while (more && state.groupCode != 0 && state.groupCode != 9) {
    variable->store(headerVars, state.groupCode, state.groupValue);
    more = ReadGroup(stream);
  }
  return more;
}

void SettleScale(HeaderVars& headerVars) {
  if (headerVars.dimScaleSet)
    headerVars.drawingScale = headerVars.dimScale;
  else if (headerVars.ltScaleSet)
    headerVars.drawingScale = headerVars.ltScale / 10.0;
  if (headerVars.drawingScale == 0.0) headerVars.drawingScale = 1.0;
  if (headerVars.ltScale == 0.0) headerVars.ltScale = 1.0;
}

int32_t ScanHeader(TextStream& stream, HeaderVars& headerVars) {
  int32_t more = ReadGroup(stream);
  while (more && !AtGroup(0, "ENDSEC"))
    more = state.groupCode == 9 ? ReadHeaderVariable(stream, headerVars) : ReadGroup(stream);
  SettleScale(headerVars);
  return more;
}

// TABLES

constexpr int32_t frozenFlag = 1;

void AddLayerName(const LayerNameEntry& entry) {
  state.layerNames.push_back(entry);
  ++state.layerCount;
}

int32_t ReadLayerName(TextStream& stream) {
  LayerNameEntry entry = {};
  int32_t flags = 0;
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    switch (state.groupCode) {
      case 2: BoundedCopy(entry.name, state.groupValue); break;
      // Flags must be exactly 1: a layer that is frozen and locked (5) is ticked.
      case 62: entry.shown = Atoi(state.groupValue) >= 0 && flags != frozenFlag; break;
      case 70: flags = Atoi(state.groupValue); break;
      case 290: entry.shown = Atoi(state.groupValue) != 0; break;
    }
  }
  AddLayerName(entry);
  return more;
}

// Returns 0 if the file ends before the layer table does.
int32_t ScanLayerNames(TextStream& stream) {
  state.layerCount = 0;
  do {
    if (!ReadGroup(stream)) return 0;
  } while (!AtGroup(2, "LAYER"));

  int32_t more = ReadGroup(stream);
  while (more && !AtGroup(0, "ENDTAB"))
    more = AtGroup(0, "LAYER") && !state.layerNamesOwned ? ReadLayerName(stream) : ReadGroup(stream);
  if (!state.layerNames.empty()) state.layerNamesOwned = 1;
  return more;
}

// ENTITIES

void Widen(double& min, double& max, double value) {
  min = std::min(min, value);
  max = std::max(max, value);
}

// Measures the points of all entities, of any kind: of a circle the centre, of a text the alignment point.
// The box starts at the origin, so it always contains the origin.
void ScanEntityExtents(TextStream& stream, HeaderVars& headerVars) {
  double minX = 0.0, minY = 0.0, maxX = 0.0, maxY = 0.0;
  while (ReadGroup(stream) && !AtGroup(0, "ENDSEC")) {
    if (state.groupCode >= 10 && state.groupCode <= 13) Widen(minX, maxX, GroupNumber());
    if (state.groupCode >= 20 && state.groupCode <= 23) Widen(minY, maxY, GroupNumber());
  }
  headerVars.extMinX = minX;
  headerVars.extMinY = minY;
  headerVars.extMaxX = maxX;
  headerVars.extMaxY = maxY;
  headerVars.extMinSet = 1;
  headerVars.extMaxSet = 1;
}

bool HasBox(const HeaderVars& headerVars) {
  return (headerVars.limMinSet && headerVars.limMaxSet) || (headerVars.extMinSet && headerVars.extMaxSet);
}

// Reads up to the name of the ENTITIES section, starting with the current group.
bool FindEntities(TextStream& stream) {
  while (!AtGroup(2, "ENTITIES"))
    if (!ReadGroup(stream)) return false;
  return true;
}

// As if the header had neither limits nor extents.
void ForgetBoxes(HeaderVars& vars) {
  vars.limMaxSet = vars.limMinSet = vars.extMaxSet = vars.extMinSet = 0;
  vars.limMaxX = vars.limMaxY = vars.limMinX = vars.limMinY = 0.0;
  vars.extMaxX = vars.extMaxY = vars.extMinX = vars.extMinY = 0.0;
}

// A header's box that is smaller than this in width or height isn't plausible.
constexpr double smallestBox = 2.0;

// Whether the maximum of the extents is below the minimum. Programs write such values for extents that
// were never computed.
bool ExtentsAreUntouched(const HeaderVars& vars) {
  return vars.extMinSet && vars.extMaxSet && (vars.extMaxX < vars.extMinX || vars.extMaxY < vars.extMinY);
}

// Extents that were never computed aren't plausible even if the limits are, so the drawing is measured.
bool BoxIsPlausible(const HeaderVars& vars) {
  const double scale = vars.drawingScale;
  if (ExtentsFitLimits(vars) && !ExtentsAreUntouched(vars))
    return vars.limMaxX / scale - vars.limMinX / scale >= smallestBox &&
           vars.limMaxY / scale - vars.limMinY / scale >= smallestBox;
  return vars.extMaxX / scale - vars.extMinX / scale >= smallestBox &&
         vars.extMaxY / scale - vars.extMinY / scale >= smallestBox;
}

// How the walk over the section names ended.
enum class WalkEnd { layersCutOff, atEntities, afterLayers, endOfFile };

WalkEnd WalkSections(TextStream& stream, HeaderVars& headerVars) {
  while (ReadGroup(stream)) {
    if (AtGroup(2, "ENTITIES")) return WalkEnd::atEntities;
    if (AtGroup(2, "TABLES")) return ScanLayerNames(stream) ? WalkEnd::afterLayers : WalkEnd::layersCutOff;
    if (AtGroup(2, "HEADER")) ScanHeader(stream, headerVars);
  }
  return WalkEnd::endOfFile;
}

void AddDefaultLayerName() {
  AddLayerName({"0", 1});
  state.layerNamesOwned = 1;
}

}  // namespace

bool ExtentsFitLimits(const HeaderVars& headerVars) {
  return !(headerVars.extMaxX - headerVars.extMinX > headerVars.limMaxX - headerVars.limMinX) &&
         !(headerVars.extMaxY - headerVars.extMinY > headerVars.limMaxY - headerVars.limMinY);
}

int32_t ScanDrawing(const char* path, HeaderVars& headerVars) {
  TextStream stream;
  if (!OpenText(stream, path)) return 0;
  KeepNoMore(stream);
  const WalkEnd walkEnd = WalkSections(stream, headerVars);
  if (walkEnd == WalkEnd::layersCutOff) return 0;
  if (state.measureSheet) ForgetBoxes(headerVars);
  const bool moreToRead = walkEnd != WalkEnd::endOfFile;

  if (!HasBox(headerVars) && moreToRead && FindEntities(stream)) {
    ScanEntityExtents(stream, headerVars);
    if (!state.layerNamesOwned) AddDefaultLayerName();
  }

  // If the scan has stopped at ENTITIES, this reads past it and finds no other one, so the header's
  // box is kept.
  if (!BoxIsPlausible(headerVars) && ReadGroup(stream) && FindEntities(stream))
    ScanEntityExtents(stream, headerVars);
  return 1;
}

}  // namespace hexlume
