/* What hexlume.h needs of the system: the rectangle and the metafile's handle, with the calls a host makes on one. On
 * Windows they are the system's own. Elsewhere the library brings them along, with the meaning that they have there. */
#ifndef HEXLUME_SYSTEM_H
#define HEXLUME_SYSTEM_H

#ifdef _WIN32

#include <windows.h>

#else

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef int32_t LONG;
typedef uint32_t UINT;
typedef int32_t BOOL;

typedef struct tagRECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
} RECT;

typedef struct HENHMETAFILE__ *HENHMETAFILE;

/* Copies the metafile's bytes, those of a .emf file, to buffer and returns their number; 0 if size is too small. With
 * buffer NULL it only returns the number. */
UINT GetEnhMetaFileBits(HENHMETAFILE metafile, UINT size, uint8_t *buffer);

/* Gives a metafile back. Returns 0 for NULL. */
BOOL DeleteEnhMetaFile(HENHMETAFILE metafile);

#ifdef __cplusplus
}
#endif

#endif

#endif
