/* The dialogs' answers, where the library has no windows: on every system but Windows.
 *
 * A conversion with showDialogs other than 0 goes on as if the user had answered its dialogs at once. Unless told
 * otherwise it is a user who presses OK and changes nothing.
 */
#ifndef HEXLUME_ANSWERS_H
#define HEXLUME_ANSWERS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Tells what the user answers from the next conversion on; the arguments are copied. Names that no layer has, and numbers
 * that no family has, answer nothing. Memory that runs out leaves the answers as they were.
 *
 *   scaleDenominator  N of the scale 1:N of a drawing beyond A0. As in the dialog's edit field, what is below 1 becomes 1
 *                     and what is above 1000 becomes 1000; but 0 leaves the dialog's own choice, 100.
 *   hiddenLayers      hiddenLayerCount names, in code page 932, of layers that are unticked. A layer that the drawing
 *                     has switched off or frozen isn't offered, and stays left out.
 *   hiddenFamilies    hiddenFamilyCount families of line types that are unticked: 0 solid, 1 dashed, 2 dotted, 3 chain,
 *                     4 double chain. */
void vzSetDialogAnswers(int32_t scaleDenominator, const char *const *hiddenLayers, int32_t hiddenLayerCount,
                        const int32_t *hiddenFamilies, int32_t hiddenFamilyCount);

/* Whether the drawing of the last conversion that asked for layers has one of this name, one of hiddenLayers: 1 or 0. It
 * has one also if that isn't offered. */
int32_t vzHiddenLayerExists(const char *name);

#ifdef __cplusplus
}
#endif

#endif
