/* The smallest host: host DRAWING.dxf METAFILE.emf. */
#include <hexlume.h>
#include <stdio.h>
#include <stdlib.h>

int main(int argc, char **argv) {
  HENHMETAFILE metafile = NULL;
  if (argc != 3 || vzMetaMake(argv[1], &metafile, 0, 0) != HEXLUME_OK) return 1;
  UINT size = GetEnhMetaFileBits(metafile, 0, NULL);
  uint8_t *bytes = malloc(size);
  FILE *file = fopen(argv[2], "wb");
  if (!bytes || !file) return 2;
  size_t written = fwrite(bytes, 1, GetEnhMetaFileBits(metafile, size, bytes), file);
  DeleteEnhMetaFile(metafile);
  free(bytes);
  return fclose(file) == 0 && written == size ? 0 : 2;
}
