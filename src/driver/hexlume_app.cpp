#include "driver/hexlume_app.h"

#include <string>

#include "driver/bounded_copy.h"
#include "platform/module_file.h"

namespace hexlume {

namespace {

std::string WithIniExtension(const std::string& path) {
  const size_t fileName = path.find_last_of("\\/") + 1;
  const size_t dot = path.find_last_of('.');
  const bool hasExtension = dot != std::string::npos && dot >= fileName;
  return path.substr(0, hasExtension ? dot : path.size()) + ".ini";
}

}  // namespace

int CHexlumeApp::InitInstance() {
  lastLayerCount = 0;
  lastLtypeCount = 0;
  // The library writes no such file. One that a host has left must not exist after the load.
  char module[1024];
  if (ModuleFileName(module, sizeof module)) DeleteFileIfThere(WithIniExtension(module).c_str());
  return CWinApp::InitInstance();
}

int CHexlumeApp::ExitInstance() {
  lastLayers = {};
  lastLtypes = {};
  return CWinApp::ExitInstance();
}

void CHexlumeApp::SaveSelection(const char* path, int32_t excludedLayerCount,
                                const NamedTable<ExcludedLayer>& excludedLayers, int32_t excludedLtypeCount,
                                const std::vector<int32_t>& excludedLtypes, int32_t scale,
                                int32_t halfWidthFont) {
  BoundedCopy(lastPath, path);
  lastLayerCount = excludedLayerCount;
  lastLtypeCount = excludedLtypeCount;
  lastScale = scale;
  lastHalfWidthFont = halfWidthFont;
  if (lastLayerCount != 0) lastLayers = excludedLayers;
  if (lastLtypeCount != 0) lastLtypes = excludedLtypes;
}

void CHexlumeApp::LoadSelection(const char*& pathOut, int32_t& excludedLayerCountOut,
                                NamedTable<ExcludedLayer>& excludedLayersOut, int32_t& excludedLtypeCountOut,
                                std::vector<int32_t>& excludedLtypesOut, int32_t& scaleOut,
                                int32_t& halfWidthFontOut) const {
  pathOut = lastPath;
  excludedLayerCountOut = lastLayerCount;
  excludedLtypeCountOut = lastLtypeCount;
  scaleOut = lastScale;
  halfWidthFontOut = lastHalfWidthFont;
  if (lastLayerCount != 0) excludedLayersOut = lastLayers;
  if (lastLtypeCount != 0) excludedLtypesOut = lastLtypes;
}

}  // namespace hexlume
