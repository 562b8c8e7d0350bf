#include "host/host_calls.h"

#include <cstdio>
#include <stdexcept>

#include "host/host_drawings.h"

namespace hexlume {

namespace {

using namespace host;

struct Kind {
  const char* name;
  int32_t status;
};

const Kind kindRows[HostCalls::kinds] = {
    {"whole", HEXLUME_STATUS_OK},
    {"turned", HEXLUME_STATUS_OK},
    {"part", HEXLUME_STATUS_OK},
    {"full size, hidden layer", HEXLUME_STATUS_OK},
    {"recent", HEXLUME_STATUS_OK},
    {"inspection", HEXLUME_STATUS_OK},
    {"stroke limit", HEXLUME_STATUS_LIMIT},
    {"byte limit", HEXLUME_STATUS_LIMIT},
    {"cancel", HEXLUME_STATUS_CANCELLED},
    {"fault", HEXLUME_STATUS_FAULT},
    {"fault that leaves", HEXLUME_STATUS_FAULT},
    {"missing", HEXLUME_STATUS_NOT_FOUND},
    {"no drawing", HEXLUME_STATUS_NO_DXF},
    {"bad argument", HEXLUME_STATUS_BAD_ARGUMENT},
};

// The faults, which go down a whole stack, come in one round of twenty; the whole sheet in their place.
int32_t KindOfCall(int32_t call) {
  constexpr int32_t roundsBetweenFaults = 20;
  const int32_t number = call % HostCalls::kinds;
  const bool isFault = kindRows[number].status == HEXLUME_STATUS_FAULT;
  return isFault && call / HostCalls::kinds % roundsBetweenFaults != 0 ? 0 : number;
}

}  // namespace

HostCalls::HostCalls()
    : drawing(A3(Lines(20) + "0 TEXT\n10 10\n20 10\n40 5\n1 A\n")),
      recent(DrawingBytes("0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1032\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n" +
                          Lines(5) + "0 MTEXT\n10 5\n20 5\n40 2\n1 図\n101 x\n10 1\n" + end)),
      faulting(DrawingBytes(a3Header + "0 SECTION\n2 BLOCKS\n0 BLOCK\n2 B\n10 0\n20 0\n3 B\n" + Line() +
                            "0 INSERT\n2 C\n0 INSERT\n2 B\n0 ENDBLK\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n" +
                            "0 INSERT\n2 B\n10 0\n20 0\n" + end)) {}

int32_t HostCalls::Call(int32_t kind) const {
  Options options;
  switch (kind) {
    case 0: return ConvertBytes(drawing).Status();
    case 1: options.turned = 1; return ConvertBytes(drawing, options).Status();
    case 2:
      options.sheet = HEXLUME_SHEET_PART;
      options.right = options.bottom = 5000;
      return ConvertBytes(drawing, options).Status();
    case 3:
      options.sheet = HEXLUME_SHEET_FULL_SIZE;
      options.HideLayer("nowhere");
      return ConvertBytes(drawing, options).Status();
    case 4: return ConvertBytes(recent).Status();
    case 5: return InspectBytes(recent).Status();
    case 6: options.limit_strokes = 5; return ConvertBytes(drawing, options).Status();
    case 7: options.limit_bytes = 1000; return ConvertBytes(drawing, options).Status();
    case 8:
      options.OnProgress([](int32_t pass, int32_t, int64_t, int64_t) { return pass == 1; });
      return ConvertBytes(drawing, options).Status();
    case 9: return ConvertBytes(faulting).Status();
    case 10: options.sheet = HEXLUME_SHEET_FULL_SIZE; return ConvertBytes(faulting, options).Status();
    case 11: return Convert("no such file.dxf").Status();
    case 12: return InspectBytes("no drawing").Status();
    default: options.sheet = 99; return ConvertBytes(drawing, options).Status();
  }
}

void HostCalls::Run(int32_t first, int32_t last) const {
  for (int32_t call = first; call < last; ++call) {
    const int32_t number = KindOfCall(call);
    const Kind& kind = kindRows[number];
    const int32_t status = Call(number);
    if (status != kind.status)
      throw std::runtime_error(std::string(kind.name) + " gave " + hexlume_status_name(status));
  }
}

}  // namespace hexlume
