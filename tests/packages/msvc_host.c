/* A host without a runtime, so that it can be linked with the import libraries for Microsoft's linker where there is no such
 * runtime. Converts FIRST.dxf in the working folder with the host library. The exit status is 0 if that gives a metafile. */
#include <hexlume_host.h>
#include <stddef.h>

/* As in hexlume.h, whose system headers aren't there either. */
uint8_t vzDXFSetFontMode(uint8_t mode);

static hexlume_input input = {.size = sizeof input, .path = "FIRST.dxf"};

int Start(void) {
  hexlume_result *result = NULL;
  const int32_t status = hexlume_convert(&input, NULL, &result);
  const int64_t size = hexlume_result_metafile_size(result);
  hexlume_result_free(result);
  vzDXFSetFontMode(0);
  return status == HEXLUME_STATUS_OK && size > 0 ? 0 : 1;
}
