/**
 * @file hexlume_host.h
 * Hexlume for hosts in any language: libhexlume_host.so, HexlumeHost.dll.
 *
 * The library turns an ASCII DXF drawing into an enhanced metafile (EMF), or reports what a drawing contains. A drawing is
 * a file or bytes in memory. Nothing is shown to the user and nothing is written to disk.
 *
 * @code
 * hexlume_input input = {.size = sizeof input};
 * hexlume_options options = {.size = sizeof options};
 * hexlume_result *result = NULL;
 * input.path = "plan.dxf";
 * options.monochrome = 1;
 * if (hexlume_convert(&input, &options, &result) == HEXLUME_STATUS_OK)
 *   fwrite(hexlume_result_metafile(result), 1, (size_t)hexlume_result_metafile_size(result), file);
 * else
 *   puts(hexlume_result_message(result, HEXLUME_ENGLISH));
 * hexlume_result_free(result);
 * @endcode
 *
 * Structs. Each begins with its size in bytes. The caller sets it for #hexlume_input and #hexlume_options, and the library
 * sets it in the structs that it returns. A later version of the library only adds fields at the end of a struct, and 0 in
 * such a field means what an earlier version does. In an input or options struct of more bytes than this library knows, the
 * others must be 0. A field that is a yes or no takes 1 or 0.
 *
 * Texts are UTF-8 and end with a 0, in both directions.
 *
 * Units. Measures of the sheet are hundredths of a millimetre, from 0 at the left and top edge of the sheet, growing to the
 * right and downward. Measures of the drawing are the numbers in its file.
 *
 * Ownership. A call of hexlume_convert() or hexlume_inspect() gives one result, which the host frees with
 * hexlume_result_free(). Everything that the functions on a result return belongs to that result and is valid until then,
 * except the handle of hexlume_result_handle(). All of these functions accept NULL, and return 0 or NULL for it.
 *
 * Errors. No call ends the process, throws an exception or leaves a drawing half open because of what a drawing holds.
 *
 * Threads. Any thread may call any function at any time. The library has one record for the process: two calls of
 * hexlume_convert() or hexlume_inspect() run one after the other. To convert several drawings at the same time, start
 * several processes. A result may be used by several threads at the same time. The library has nothing in common with
 * Hexlume.dll (libhexlume.so) in the same process: neither changes what the other does.
 *
 * All functions have the C calling convention (cdecl on Windows).
 */
#ifndef HEXLUME_HOST_H
#define HEXLUME_HOST_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** What became of a call. hexlume_status_name() gives the short name, which never changes. */
enum {
  HEXLUME_STATUS_OK = 0,           /**< "ok" */
  HEXLUME_STATUS_BAD_ARGUMENT = 1, /**< "bad-argument": the message names the argument. Nothing was read */
  HEXLUME_STATUS_NOT_FOUND = 2,    /**< "not-found": there is no such file */
  HEXLUME_STATUS_NOT_A_FILE = 3,   /**< "not-a-file": the path is a folder or a device */
  HEXLUME_STATUS_NOT_ALLOWED = 4,  /**< "not-allowed": the file is there, but can't be opened or read */
  HEXLUME_STATUS_EMPTY = 5,        /**< "empty": the drawing has no bytes */
  HEXLUME_STATUS_DWG = 6,          /**< "dwg": a DWG file */
  HEXLUME_STATUS_BINARY_DXF = 7,   /**< "binary-dxf": a DXF file in its binary form */
  HEXLUME_STATUS_COMPRESSED = 8,   /**< "compressed": a compressed file or an archive */
  HEXLUME_STATUS_NO_DXF = 9,       /**< "no-dxf": no section of a DXF file was found */
  HEXLUME_STATUS_NO_ENTITIES = 10, /**< "no-entities": the drawing has no ENTITIES section. The metafile, if there is
                                        one, is an empty sheet */
  HEXLUME_STATUS_NO_LAYERS = 11,   /**< "no-layers": the drawing has tables, but no layer table, and isn't converted */
  HEXLUME_STATUS_CUT_OFF = 12,     /**< "cut-off": the drawing ends so early that nothing can be drawn */
  HEXLUME_STATUS_TOO_LARGE = 13,   /**< "too-large": the drawing has 2 GB or more */
  HEXLUME_STATUS_CANCELLED = 14,   /**< "cancelled": the progress function asked for it. There may be a metafile */
  HEXLUME_STATUS_LIMIT = 15,       /**< "limit": a limit of the options was reached. There may be a metafile */
  HEXLUME_STATUS_FAULT = 16,       /**< "fault": the drawing can't be drawn to its end, for example because a block
                                        contains itself. There may be a metafile */
  HEXLUME_STATUS_NO_MEMORY = 17    /**< "no-memory": memory ran out, and there is no metafile. The result may be NULL */
};

/** Languages of the sentences. */
enum {
  HEXLUME_ENGLISH = 0, /**< English */
  HEXLUME_JAPANESE = 1 /**< Japanese */
};

/** How the bytes of a drawing are read. */
enum {
  HEXLUME_FORMAT_AUTO = 0, /**< Drawings of version AC1021 and later ($ACADVER) are given to the converter as an older
                                version would have them: their UTF-8 becomes code page 932, and groups of embedded
                                objects are left out. All other drawings are read as they are */
  HEXLUME_FORMAT_AS_IS = 1 /**< Every drawing is read as it is: the metafile is that of the exports of hexlume.h */
};

/** What is converted. */
enum {
  HEXLUME_SHEET_WHOLE = 0,     /**< The whole sheet, fitted to at most A0 */
  HEXLUME_SHEET_FULL_SIZE = 1, /**< The whole sheet, with the model at full size */
  HEXLUME_SHEET_PART = 2       /**< The part of the sheet that #hexlume_options has in left, top, right and bottom */
};

/** Families of line types: bits of #hexlume_options::hidden_line_types. */
enum {
  HEXLUME_LINES_SOLID = 1,       /**< Continuous lines */
  HEXLUME_LINES_DASHED = 2,      /**< Dashes */
  HEXLUME_LINES_DOTTED = 4,      /**< Dots */
  HEXLUME_LINES_CHAIN = 8,       /**< Dash, dot */
  HEXLUME_LINES_DOUBLE_CHAIN = 16 /**< Dash, dot, dot */
};

/** Is called while a drawing is read, at the start and the end of each pass and at most some hundred times a second
 * between, on the thread that called the library. It must not throw an exception, and gets #HEXLUME_STATUS_BAD_ARGUMENT
 * from hexlume_convert() and hexlume_inspect().
 *
 * @param user    what the options have in user
 * @param pass    the pass, from 1. A conversion reads a drawing twice: it measures, then draws. A turned one does so twice
 * @param passes  how many passes there are
 * @param done    bytes read in this pass. It never becomes less within a pass. The measuring pass reads no more than it
 *                must and can end with less than total
 * @param total   bytes of the drawing
 * @return 0 to go on, any other number to cancel */
typedef int32_t (*hexlume_progress)(void *user, int32_t pass, int32_t passes, int64_t done, int64_t total);

/** A drawing: a path or bytes, not both. */
typedef struct hexlume_input {
  uint32_t size;       /**< sizeof(hexlume_input) */
  uint32_t reserved;   /**< 0 */
  int64_t path_length; /**< Bytes of path; 0 if path ends with a 0 */
  int64_t byte_count;  /**< Bytes of bytes */
  const char *path;    /**< Path of a file, in UTF-8 on every system */
  const void *bytes;   /**< The drawing itself. It must not change during the call */
} hexlume_input;

/** What a conversion or an inspection is asked for. 0 in a field is its default. */
typedef struct hexlume_options {
  uint32_t size;          /**< sizeof(hexlume_options) */
  int32_t format;         /**< #HEXLUME_FORMAT_AUTO or #HEXLUME_FORMAT_AS_IS */
  int32_t sheet;          /**< #HEXLUME_SHEET_WHOLE, #HEXLUME_SHEET_FULL_SIZE or #HEXLUME_SHEET_PART */
  int32_t left;           /**< Left edge of the part, in the units of the sheet */
  int32_t top;            /**< Top edge of the part */
  int32_t right;          /**< Right edge of the part */
  int32_t bottom;         /**< Bottom edge of the part. The part is the frame of the metafile */
  int32_t turned;         /**< 1: turned by 180 degrees. Not with a part */
  int32_t whole_texts;    /**< 1: texts that aren't wholly inside the part are left out. Only with a part */
  int32_t monochrome;     /**< 1: everything is black */
  int32_t half_width;     /**< 1: texts have half-width cells, in the face of the system */
  int32_t fit;            /**< 1: the sheet is measured from the entities, as if the header had neither limits nor
                               extents. For previews: many headers are wrong */
  int32_t denominator;    /**< N of the scale 1:N for a drawing that is larger than A0, 1 to 1000. 0: 100 */
  int32_t skip_off_layers; /**< 1: layers that the drawing has switched off or frozen are left out. A name in
                               hidden_layers or a bit in hidden_line_types implies it */
  uint32_t hidden_line_types; /**< Families of line types that are left out: #HEXLUME_LINES_SOLID and so on, added up */
  int32_t hidden_layer_count; /**< Number of names in hidden_layers */
  int64_t limit_milliseconds; /**< The call ends after this time. 0: no limit */
  int64_t limit_strokes;      /**< The drawing ends after so many strokes, and those of the entity then being drawn that
                                   can't be stopped. A stroke is a line, curve, mark or filled shape drawn with one pen, a
                                   dash or dot of a line type, or a line or dot of a hatch. Texts aren't counted. 0: no
                                   limit */
  int64_t limit_bytes;        /**< The metafile is cut after the last whole record within so many bytes. 0: no limit */
  const char *const *hidden_layers; /**< Names of layers that are left out. A name that the drawing doesn't have becomes
                                         a remark of the result */
  hexlume_progress progress;        /**< NULL: no progress is reported */
  void *user;                       /**< Is handed to progress */
} hexlume_options;

/** A result. It is opaque. */
typedef struct hexlume_result hexlume_result;

/** The version of the library: major * 10000 + minor * 100 + patch.
 * @return for example 10000 for 1.0.0 */
int32_t hexlume_version(void);

/** The short name of a status, for example "not-found". It never changes and is never translated.
 * @return NULL for a number that is no status */
const char *hexlume_status_name(int32_t status);

/** Sets all options to their defaults. It is the same as clearing the struct and setting its size.
 * @param options  receives the options. NULL is accepted
 * @param size     sizeof(hexlume_options) */
void hexlume_options_init(hexlume_options *options, uint32_t size);

/** Converts a drawing.
 *
 * @param input    the drawing
 * @param options  NULL for the defaults
 * @param result   receives the result, whatever the status is; NULL only if there is no memory for it
 * @return the status of the result */
int32_t hexlume_convert(const hexlume_input *input, const hexlume_options *options, hexlume_result **result);

/** Reports what a drawing contains, without drawing it. The options format, sheet, fit and denominator are used for the
 * size of the sheet; the time limit and progress work as in a conversion, in two passes: measuring and reading.
 *
 * @param input    the drawing
 * @param options  NULL for the defaults
 * @param result   receives the result, whatever the status is; NULL only if there is no memory for it. What was read is
 *                 in the result also when the status isn't #HEXLUME_STATUS_OK
 * @return the status of the result */
int32_t hexlume_inspect(const hexlume_input *input, const hexlume_options *options, hexlume_result **result);

/** Frees a result. NULL is accepted. */
void hexlume_result_free(hexlume_result *result);

/** The status of a result, #HEXLUME_STATUS_OK and so on. */
int32_t hexlume_result_status(const hexlume_result *result);

/** A sentence that says what became of the call, with the line of the file if there is one.
 * @param result    the result
 * @param language  #HEXLUME_ENGLISH or #HEXLUME_JAPANESE. Other numbers give English */
const char *hexlume_result_message(const hexlume_result *result, int32_t language);

/** The line of the file, from 1, at which a cut-off drawing ends or a fault, a limit of time or strokes or a cancel ended
 * the reading. 0 if the status has no line. */
int64_t hexlume_result_line(const hexlume_result *result);

/** The bytes of the metafile, those of a .emf file. NULL if there is no metafile. */
const uint8_t *hexlume_result_metafile(const hexlume_result *result);

/** The number of bytes of the metafile. 0 if there is no metafile. */
int64_t hexlume_result_metafile_size(const hexlume_result *result);

/** On Windows a new handle of the metafile, an HENHMETAFILE. The caller gives it back with DeleteEnhMetaFile(). NULL if
 * there is no metafile, and on other systems. */
void *hexlume_result_handle(const hexlume_result *result);

/** Numbers of a result: see hexlume_result_number(). */
enum {
  HEXLUME_NUMBER_SHEET_WIDTH = 0,  /**< Width of the sheet, in its units. 0 if the drawing couldn't be measured */
  HEXLUME_NUMBER_SHEET_HEIGHT = 1, /**< Height of the sheet */
  HEXLUME_NUMBER_DENOMINATOR = 2,  /**< N of the scale 1:N that a drawing larger than A0 got; 1 for all others */
  HEXLUME_NUMBER_STROKES = 3,      /**< Strokes drawn, as #hexlume_options::limit_strokes counts them */
  HEXLUME_NUMBER_BYTES_READ = 4,   /**< Bytes of the drawing */
  HEXLUME_NUMBER_SUBSTITUTED = 5,  /**< Characters that code page 932 doesn't have, in a drawing in UTF-8 */
  HEXLUME_NUMBER_EMBEDDED = 6,     /**< Embedded objects that were left out */
  HEXLUME_NUMBER_MILLISECONDS = 7  /**< Time of the call, without waiting for other calls */
};

/** A number of a result. 0 for a number that isn't in the list. */
int64_t hexlume_result_number(const hexlume_result *result, int32_t number);

/** What a remark is about. */
enum {
  HEXLUME_REMARK_NO_SUCH_LAYER = 0, /**< "no-such-layer": the drawing doesn't have the layer detail. With several tables of
                                         layers, the first counts */
  HEXLUME_REMARK_CUT_OFF = 1,       /**< "cut-off": the drawing ends without its end mark, in line line */
  HEXLUME_REMARK_SUBSTITUTED = 2,   /**< "substituted": count characters that code page 932 doesn't have became similar
                                         ones or "?" */
  HEXLUME_REMARK_NOT_UTF8 = 3,      /**< "not-utf8": count lines of a drawing in UTF-8, the first is line, have other
                                         bytes. These lines were read as code page 932 */
  HEXLUME_REMARK_EMBEDDED = 4       /**< "embedded": count embedded objects were left out */
};

/** Something about a drawing or a call that didn't prevent a result. */
typedef struct hexlume_remark {
  uint32_t size;        /**< sizeof(hexlume_remark) */
  int32_t code;         /**< #HEXLUME_REMARK_NO_SUCH_LAYER and so on */
  int64_t line;         /**< Line of the file; 0 if the remark has none */
  int64_t count;        /**< How often; 0 if the remark has no number */
  const char *name;     /**< Short name of the code, which never changes */
  const char *detail;   /**< For example the name of a layer; "" if the remark has none */
  const char *english;  /**< The remark as a sentence in English */
  const char *japanese; /**< The remark as a sentence in Japanese */
} hexlume_remark;

/** A remark of a result, from index 0. NULL after the last one. */
const hexlume_remark *hexlume_result_remark(const hexlume_result *result, int64_t index);

/** What the header of a drawing says. The fields has_limits and has_extents are 1 if both corners are there. */
typedef struct hexlume_summary {
  uint32_t size;         /**< sizeof(hexlume_summary) */
  int32_t has_limits;    /**< $LIMMIN and $LIMMAX */
  int32_t has_extents;   /**< $EXTMIN and $EXTMAX */
  int32_t sheet_width;   /**< Width of the sheet of a conversion, in its units; 0 if it can't be measured */
  int32_t sheet_height;  /**< Height of the sheet of a conversion */
  int32_t denominator;   /**< N of the scale 1:N of a drawing larger than A0; 1 for all others */
  double scale;          /**< Units of the drawing for a millimetre of the sheet, denominator included */
  double limits[4];      /**< Left, bottom, right, top */
  double extents[4];     /**< Left, bottom, right, top */
  const char *version;   /**< $ACADVER, for example "AC1015"; "" if there is none */
} hexlume_summary;

/** A layer of the first layer table. */
typedef struct hexlume_layer {
  uint32_t size;         /**< sizeof(hexlume_layer) */
  int32_t color;         /**< Colour number as in the file, negative if the layer is off; 0 without one */
  int32_t shown;         /**< 0 if #hexlume_options::skip_off_layers leaves it out */
  int32_t reserved;      /**< 0 */
  const char *name;      /**< Name */
  const char *line_type; /**< Name of the line type */
} hexlume_layer;

/** A line type. */
typedef struct hexlume_line_type {
  uint32_t size;     /**< sizeof(hexlume_line_type) */
  int32_t elements;  /**< Number of dashes, gaps and dots */
  const char *name;  /**< Name */
} hexlume_line_type;

/** A dimension style. */
typedef struct hexlume_dim_style {
  uint32_t size;      /**< sizeof(hexlume_dim_style) */
  uint32_t reserved;  /**< 0 */
  const char *name;   /**< Name */
} hexlume_dim_style;

/** A block. */
typedef struct hexlume_block {
  uint32_t size;      /**< sizeof(hexlume_block) */
  uint32_t reserved;  /**< 0 */
  int64_t entities;   /**< Number of entities in it */
  int64_t line;       /**< Line of the file at which it begins */
  const char *name;   /**< Name */
} hexlume_block;

/** Entities of one kind on one layer. Vertices and the end of a sequence count as a part of their entity. */
typedef struct hexlume_entities {
  uint32_t size;            /**< sizeof(hexlume_entities) */
  int32_t drawn;            /**< 1 if the library draws this kind in the ENTITIES section */
  int32_t drawn_in_blocks;  /**< 1 if it draws this kind in blocks */
  int32_t reserved;         /**< 0 */
  int64_t count;            /**< How many are in the ENTITIES section */
  int64_t count_in_blocks;  /**< How many are in blocks, each block counted once */
  const char *kind;         /**< Kind, for example "LINE" */
  const char *layer;        /**< Name of the layer; "" for entities without one */
} hexlume_entities;

/** A TEXT, MTEXT, ATTRIB or ATTDEF. */
typedef struct hexlume_text {
  uint32_t size;        /**< sizeof(hexlume_text) */
  uint32_t reserved;    /**< 0 */
  int64_t line;         /**< Line of the file at which the entity begins */
  double x;             /**< Place, units of the drawing or of the block */
  double y;             /**< Place */
  double height;        /**< Height, 0 if the entity has none */
  double angle;         /**< Angle in degrees, as in the file */
  const char *kind;     /**< "TEXT", "MTEXT", "ATTRIB" or "ATTDEF" */
  const char *layer;    /**< Name of the layer */
  const char *block;    /**< Name of the block that contains it; "" in the ENTITIES section */
  const char *text;     /**< The text as in the file, with its codes such as \\P and %%d */
} hexlume_text;

/** What the header of an inspected drawing says. NULL for the result of a conversion. */
const hexlume_summary *hexlume_result_summary(const hexlume_result *result);

/** A layer of an inspected drawing, from index 0, in the order of the file. NULL after the last one. */
const hexlume_layer *hexlume_result_layer(const hexlume_result *result, int64_t index);

/** A line type of an inspected drawing, from index 0. NULL after the last one. */
const hexlume_line_type *hexlume_result_line_type(const hexlume_result *result, int64_t index);

/** A dimension style of an inspected drawing, from index 0. NULL after the last one. */
const hexlume_dim_style *hexlume_result_dim_style(const hexlume_result *result, int64_t index);

/** A block of an inspected drawing, from index 0. NULL after the last one. */
const hexlume_block *hexlume_result_block(const hexlume_result *result, int64_t index);

/** The number of entities of a kind on a layer, from index 0, sorted by kind and layer. NULL after the last one. */
const hexlume_entities *hexlume_result_entities(const hexlume_result *result, int64_t index);

/** A text of an inspected drawing, from index 0, in the order of the file. NULL after the last one. */
const hexlume_text *hexlume_result_text(const hexlume_result *result, int64_t index);

#ifdef __cplusplus
}
#endif

#endif
