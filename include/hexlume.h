/** @file hexlume.h
 * Hexlume: turns an ASCII DXF drawing into an enhanced metafile.
 *
 * A host calls one of the conversions below with the path of a drawing and gets the handle of a memory metafile, which
 * it shows with PlayEnhMetaFile, prints, or saves with GetEnhMetaFileBits (on Linux the last alone).
 *
 * Units. Sheet measures are hundredths of a millimetre, from 0 at the sheet's left and top edge, growing to the right
 * and downward. The metafile's frame is the sheet, or the part of it that the host asked for.
 *
 * Arguments that all conversions share:
 *   path           the drawing's file name, on Windows in the ANSI code page of the process. The conversion that vzRotMetaMake
 *                  repeats must have a path of at most 259 bytes.
 *   out            receives the metafile. The host owns it and gives it back with DeleteEnhMetaFile.
 *   showDialogs    0: no dialog. 1: the user chooses layers and line types and, for a drawing beyond A0, the scale.
 *                  Any other value: only the scale is asked for. On Linux, where there are no windows, the answers are
 *                  those of hexlume_answers.h. A process of Windows that can't show windows goes on as without dialogs.
 *   halfWidthFont  0: text is drawn in "MS Gothic" with full-width cells; otherwise in the system's own face with
 *                  half-width cells.
 *
 * Return codes and what *out holds then:
 *   HEXLUME_OK            a metafile. It has no drawing on it if the user left everything out.
 *   HEXLUME_NOT_OPENED    the drawing could be measured, but not opened again to be drawn; *out is as it was.
 *   HEXLUME_CANCELLED     the user cancelled a dialog; *out is as it was.
 *   HEXLUME_NOT_A_DRAWING the file can't be read, is cut off within its layers, tells no size and holds nothing to
 *                         measure; or path or out is NULL. *out is as it was.
 *                         From vzMetaMake and vzDXFMetaMake also: a fault ended the drawing. If the metafile had been
 *                         begun, *out then holds what was drawn up to there, and the host deletes it; otherwise it is
 *                         as it was. Set *out to NULL before the call to tell the two apart.
 *
 * Faults. vzMetaMake and vzDXFMetaMake catch every fault and return HEXLUME_NOT_A_DRAWING. From the other six
 * conversions a fault leaves as an exception: 11 for a fault within the drawing, -1 for a text too long for its place (a
 * path of 260 bytes or more, say). Nothing stays open then and *out is as it was. On Windows it is an exception of the
 * system's own C++ compilers that carries the number as an int (code 0xE06D7363): catch (int) gets it in a host built
 * with them, structured handling in any host. On Linux it is a C++ exception of type int; a host in C can't catch it and
 * ends, and so calls vzMetaMake.
 *
 * Threads. The library keeps one record for the whole process and no lock: calls must not overlap. They may come from
 * different threads one after the other. Dialogs run modal on the thread of the call; its active window owns them and is
 * disabled meanwhile. A quit message that comes meanwhile cancels them and is posted again for the host's own loop.
 *
 * Locale. On Windows a drawing with text makes the C locale of the process Japanese in all its categories, and leaves it
 * so: a host that needs another sets it again behind the call. On Linux the process's locale is left alone. What is drawn
 * doesn't depend on it.
 *
 * What stays between calls: the monochrome switch, the dialog font, and for vzRotMetaMake the last conversion's path,
 * selection, scale and font. Also what an entity takes over that lacks a group of its own, and so a drawing can depend on
 * the one before it: the coordinates, radii, colours and texts of the entities before; the layer and the scales of the last
 * INSERT or LEADER (the scales are 1 in a fresh process); the face that a text named last. Such a drawing is the same each
 * time only if each conversion has a process of its own.
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

/** Converts the whole sheet, fitted to at most A0. */
int32_t vzMetaMake(const char *path, HENHMETAFILE *out, int32_t showDialogs, int32_t halfWidthFont);

/** Converts a part of the sheet: view, in sheet hundredths, is what is drawn and the frame of the metafile. A view
 * outside the sheet gives an empty metafile of that frame. wholeTextClip other than 0 drops every text that reaches beyond
 * the view's top (an MTEXT also its bottom, by its alignment). Only 1 drops as well those that reach beyond its right edge (an
 * MTEXT also its left one), by the average width of their characters. vzRotMetaMake takes no notice of this conversion. */
int32_t vzReMetaMake(const char *path, HENHMETAFILE *out, int32_t halfWidthFont, RECT view, int32_t wholeTextClip,
                     int32_t showDialogs);

/** Converts again what vzMetaMake or vzFullSizeMetaMake (or their twins) converted last, turned by 180 degrees, with the
 * same layers and line types left out. The file is read again. Returns HEXLUME_NOT_A_DRAWING if there was none. */
int32_t vzRotMetaMake(HENHMETAFILE *out);

/** Converts the whole sheet with the model at full size, without the scale that the drawing tells. */
int32_t vzFullSizeMetaMake(const char *path, HENHMETAFILE *out, int32_t showDialogs, int32_t halfWidthFont);

/** @name The same four with a monochrome switch
 * Other than 0, everything is drawn in black. The switch stays: a conversion without the argument draws as the last of
 * these four asked, also when that one failed. */
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

/** Chooses the font of the dialogs, from the next one on: 1 for the system's menu font, any other value for the dialogs'
 * own Japanese font. Returns mode. */
uint8_t vzDXFSetFontMode(uint8_t mode);

#ifdef __cplusplus
}
#endif

#endif
