/* Converts a drawing with the host library, in C: convert DRAWING.dxf METAFILE.emf
 *
 * cc convert.c -lhexlume_host -o convert */
#include <hexlume_host.h>
#include <stdio.h>

static int32_t ShowProgress(void *user, int32_t pass, int32_t passes, int64_t done, int64_t total) {
  (void)user;
  fprintf(stderr, "pass %d of %d: %d %%\n", (int)pass, (int)passes, (int)(total ? 100 * done / total : 100));
  return 0; /* any other number cancels */
}

static int Write(const char *path, const hexlume_result *result) {
  size_t size = (size_t)hexlume_result_metafile_size(result);
  FILE *file = fopen(path, "wb");
  if (!file) return 0;
  size_t written = fwrite(hexlume_result_metafile(result), 1, size, file);
  return fclose(file) == 0 && written == size;
}

int main(int argc, char **argv) {
  hexlume_input input = {.size = sizeof input};
  hexlume_options options = {.size = sizeof options};
  hexlume_result *result = NULL;
  if (argc != 3) return 64;
  input.path = argv[1];
  options.progress = ShowProgress;
  options.limit_milliseconds = 60000;

  int32_t status = hexlume_convert(&input, &options, &result);
  if (status != HEXLUME_STATUS_OK)
    fprintf(stderr, "%s: %s\n", hexlume_status_name(status), hexlume_result_message(result, HEXLUME_ENGLISH));
  const hexlume_remark *remark;
  for (int64_t i = 0; (remark = hexlume_result_remark(result, i)) != NULL; ++i)
    fprintf(stderr, "%s: %s\n", remark->name, remark->english);
  /* After a limit or a fault there may be a metafile of what was drawn until then. */
  if (hexlume_result_metafile(result) && !Write(argv[2], result)) status = 73;
  hexlume_result_free(result);
  return status;
}
