/** @file hexlume.h
 * Hexlume: turns an ASCII DXF drawing into an enhanced metafile.
 *
 * A host calls one of the conversions below with the path of a drawing and gets the handle of a memory metafile, which
 * it shows with PlayEnhMetaFile, prints, or saves with GetEnhMetaFileBits (on Linux only the last).
 *
 * Units. Sheet coordinates are hundredths of a millimetre from the sheet's left and top edge, to the right and
 * downward. The metafile's frame is the sheet, or the part of it that the host asked for.
 *
 * Arguments that all conversions share:
 *   path           the drawing's file name, on Windows in the ANSI code page of the process. At most 259 bytes for a
 *                  conversion that vzRotMetaMake can repeat.
 *   out            receives the metafile. The host owns it and frees it with DeleteEnhMetaFile.
 *   showDialogs    0: no dialog. 1: the user chooses layers and line types and, for a drawing beyond A0, the scale.
 *                  Any other value: only the scale is asked for. On Linux, where there are no windows, the answers are
 *                  those of hexlume_answers.h. If a dialog can't be shown on Windows, the call goes on as without it.
 *   halfWidthFont  0: text is drawn in "MS Gothic" with full-width cells; otherwise in the system's own face with
 *                  half-width cells.
 *
 * Return codes and what *out holds then:
 *   HEXLUME_OK            a metafile. It has no drawing on it if the user left everything out. *out is NULL if the system
 *                         had no memory to start one.
 *   HEXLUME_NOT_OPENED    the drawing was measured, but could not be opened again to be drawn; *out is unchanged.
 *   HEXLUME_CANCELLED     the user cancelled a dialog; *out is unchanged.
 *   HEXLUME_NOT_A_DRAWING the file can't be read, ends within its layers, or has neither a size nor anything to
 *                         measure; or path or out is NULL. *out is unchanged.
 *                         From vzMetaMake and vzDXFMetaMake also: a fault ended the drawing. If the metafile was
 *                         started, *out is a metafile with what was drawn before the fault, and the host deletes it;
 *                         otherwise *out is unchanged. Set *out to NULL before the call to distinguish the two.
 *
 * Faults. vzMetaMake and vzDXFMetaMake catch every fault and return HEXLUME_NOT_A_DRAWING. From the other six
 * conversions a fault is thrown as an exception: 11 for a fault within the drawing, -1 for a text that is too long
 * (for example a path of 260 bytes or more). All resources are released then and *out is unchanged. On Windows it is
 * an exception of the system's own C++ compilers with the number as an int (code 0xE06D7363): catch (int) catches it
 * in a host built with them, structured handling in any host. On Linux it is a C++ exception of type int; a host in C
 * can't catch it and would end, so it should call vzMetaMake.
 *
 * Bounds. A conversion that has reached bounds of the library leaves HEXLUME_BOUNDS_REACHED, with a bit for each of them,
 * as the thread's last error (on Windows GetLastError, elsewhere errno), whatever it returns or throws. Bit n is the
 * bound n of hexlume_host.h. Otherwise it isn't a number with that bit.
 *
 * Threads. The library keeps one record for the whole process and no lock: calls must not overlap. They may come from
 * different threads one after the other. Dialogs are modal and run on the calling thread; its active window owns them
 * and is disabled while they are shown. A quit message cancels them and is posted again for the host's own loop.
 *
 * Locale. On Windows a drawing with text sets the C locale of the process to Japanese, in all categories, and doesn't
 * restore it: a host that needs another one sets it again after the call. On Linux the locale isn't changed. The
 * result doesn't depend on it.
 *
 * Kept between calls: the monochrome switch, the dialog font, and for vzRotMetaMake the path, selection, scale and
 * font of the last conversion. Also the values that an entity without a group of its own takes from an earlier one,
 * so the result can depend on the drawing converted before: the coordinates, radii, colours and texts of the entities
 * before it; the layer and the scales of the last INSERT or LEADER (the scales are 1 in a new process); the last face
 * that a text named. The result for such a drawing is always the same only if each conversion runs in a process of
 * its own.
 *
 * All functions are exported under the undecorated names below, on Windows with the C calling convention (cdecl).
 */
#ifndef HEXLUME_H
#define HEXLUME_H

#include <stdint.h>

#include "hexlume_system.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Return codes. */
enum {
  HEXLUME_OK = 0,            /**< a metafile */
  HEXLUME_NOT_OPENED = 2,    /**< measured, but not opened again */
  HEXLUME_CANCELLED = 16,    /**< a dialog was cancelled */
  HEXLUME_NOT_A_DRAWING = 30 /**< no drawing, or a fault ended it */
};

/** A bit of the last error after a conversion that has reached bounds. */
enum { HEXLUME_BOUNDS_REACHED = 0x20000000 };

/** Converts the whole sheet, fitted to at most A0. */
int32_t vzMetaMake(const char *path, HENHMETAFILE *out, int32_t showDialogs, int32_t halfWidthFont);

/** Converts a part of the sheet: view, in sheet hundredths, is what is drawn and the frame of the metafile. A view
 * outside the sheet gives an empty metafile with that frame. wholeTextClip other than 0 drops every text that
 * extends beyond the view's top (an MTEXT also its bottom, by its alignment). Only 1 also drops those that extend
 * beyond its right edge (an MTEXT also its left one), by the average width of their characters. vzRotMetaMake
 * ignores this conversion. */
int32_t vzReMetaMake(const char *path, HENHMETAFILE *out, int32_t halfWidthFont, RECT view, int32_t wholeTextClip,
                     int32_t showDialogs);

/** Repeats the last conversion of vzMetaMake or vzFullSizeMetaMake (or their twins), rotated by 180 degrees, with the
 * same layers and line types left out. The file is read again. Returns HEXLUME_NOT_A_DRAWING if there was none. */
int32_t vzRotMetaMake(HENHMETAFILE *out);

/** Converts the whole sheet with the model at full size, ignoring the drawing's own scale. */
int32_t vzFullSizeMetaMake(const char *path, HENHMETAFILE *out, int32_t showDialogs, int32_t halfWidthFont);

/** @name The same four with a monochrome switch
 * Other than 0, everything is drawn in black. The switch is kept: a conversion without the argument uses the value of
 * the last of these four calls, even if that call failed. */
/**@{*/
/** vzMetaMake() with the switch. */
int32_t vzDXFMetaMake(const char *path, HENHMETAFILE *out, int32_t showDialogs, int32_t halfWidthFont,
                      int32_t monochrome);
/** vzReMetaMake() with the switch. */
int32_t vzDXFReMetaMake(const char *path, HENHMETAFILE *out, int32_t halfWidthFont, RECT view, int32_t wholeTextClip,
                        int32_t showDialogs, int32_t monochrome);
/** vzRotMetaMake() with the switch. */
int32_t vzDXFRotMetaMake(HENHMETAFILE *out, int32_t monochrome);
/** vzFullSizeMetaMake() with the switch. */
int32_t vzDXFFullSizeMetaMake(const char *path, HENHMETAFILE *out, int32_t showDialogs, int32_t halfWidthFont,
                              int32_t monochrome);
/**@}*/

/** Sets the font of the following dialogs: 1 for the system's menu font, any other value for the dialogs' own
 * Japanese font. Returns mode. */
uint8_t vzDXFSetFontMode(uint8_t mode);

#ifdef __cplusplus
}
#endif

#endif
