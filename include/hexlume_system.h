/* The types of the system that hexlume.h needs: the rectangle and the metafile's handle, with the functions that a host
 * calls on it. On Windows they are the system's own. Elsewhere the library defines them, with the same meaning. */
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

typedef struct HENHMETAFILE__* HENHMETAFILE;

/* Copies the metafile's bytes, which are those of a .emf file, to buffer and returns their number, or 0 if size is too
 * small. If buffer is NULL, only returns the number. */
UINT GetEnhMetaFileBits(HENHMETAFILE metafile, UINT size, uint8_t* buffer);

/* Returns the same bytes without a copy, NULL for NULL. They are valid until the metafile is freed. Windows doesn't have this
 * function. */
const uint8_t* EnhMetaFileBytes(HENHMETAFILE metafile);

/* Frees a metafile. Returns 0 for NULL. */
BOOL DeleteEnhMetaFile(HENHMETAFILE metafile);

#ifdef __cplusplus
}
#endif

#endif

#endif
