/* The answers to the dialogs on systems other than Windows, where the library has no windows.
 *
 * A conversion with showDialogs other than 0 goes on as if the user had given these answers. By default the user
 * presses OK and changes nothing. */
#ifndef HEXLUME_ANSWERS_H
#define HEXLUME_ANSWERS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Sets the answers for the following conversions. The arguments are copied. Names of layers that don't exist and
 * unknown family numbers are ignored. If memory runs out, the previous answers remain.
 *
 *   scaleDenominator  N of the scale 1:N of a drawing beyond A0. As in the dialog's edit field, values below 1 become
 *                     1 and values above 1000 become 1000, except that 0 selects the dialog's default, 100.
 *   hiddenLayers      hiddenLayerCount names of layers to untick, in code page 932. A layer that is off or frozen in
 *                     the drawing isn't offered, and is left out in any case.
 *   hiddenFamilies    hiddenFamilyCount families of line types to untick: 0 solid, 1 dashed, 2 dotted, 3 chain,
 *                     4 double chain. */
void vzSetDialogAnswers(int32_t scaleDenominator, const char *const *hiddenLayers, int32_t hiddenLayerCount,
                        const int32_t *hiddenFamilies, int32_t hiddenFamilyCount);

/* Returns 1 if name is one of hiddenLayers and the drawing of the last conversion that asked for layers has such a
 * layer, offered or not; otherwise 0. */
int32_t vzHiddenLayerExists(const char *name);

#ifdef __cplusplus
}
#endif

#endif
