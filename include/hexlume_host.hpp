/**
 * @file hexlume_host.hpp
 * hexlume_host.h for C++17: results that free themselves, lists for range-based for, and any callable for progress.
 *
 * @code
 * hexlume::host::Options options;
 * options.monochrome = 1;
 * options.HideLayer("dimensions");
 * const hexlume::host::Result result = hexlume::host::Convert("plan.dxf", options);
 * if (result) file.write(result.Metafile().data(), result.Metafile().size());
 * else std::cerr << result.Message() << '\n';
 * @endcode
 *
 * Header only. What the functions mean is in hexlume_host.h.
 */
#ifndef HEXLUME_HOST_HPP
#define HEXLUME_HOST_HPP

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hexlume_host.h"

/** The C++ interface of the host library. */
namespace hexlume::host {

/** What a conversion or an inspection is asked for: the fields of #hexlume_options with their defaults, and the two that are
 * easier to set in C++. */
class Options : public hexlume_options {
 public:
  /** Gets the pass, the number of passes, and the bytes done and in all. Returns false to cancel. */
  using Progress = std::function<bool(int32_t pass, int32_t passes, int64_t done, int64_t total)>;

  /** All defaults. */
  Options() : hexlume_options() { hexlume_options_init(this, sizeof(hexlume_options)); }

  /** Leaves a layer out. */
  Options &HideLayer(std::string name) {
    hidden.push_back(std::move(name));
    return *this;
  }

  /** Sets the progress function. It may throw: the call is cancelled then, and the exception goes on to its caller. */
  Options &OnProgress(Progress function) {
    onProgress = std::move(function);
    return *this;
  }

 private:
  friend class Call;
  std::vector<std::string> hidden;
  Progress onProgress;
};

/** A list of a result, for range-based for. It is valid as long as the result. */
template <typename Row>
class Rows {
 public:
  /** The function of hexlume_host.h that gives a row. */
  using Accessor = const Row *(*)(const hexlume_result *, int64_t);

  /** Goes from row to row. */
  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag; /**< as the library asks for it */
    using value_type = Row;                            /**< as the library asks for it */
    using difference_type = std::ptrdiff_t;            /**< as the library asks for it */
    using pointer = const Row *;                       /**< as the library asks for it */
    using reference = const Row &;                     /**< as the library asks for it */

    /** The row of an index; the end with a row that is NULL. */
    Iterator(const hexlume_result *owner, Accessor rowAt, int64_t first)
        : result(owner), accessor(rowAt), index(first), row(rowAt(owner, first)) {}
    /** The row. */
    const Row &operator*() const { return *row; }
    /** The row. */
    const Row *operator->() const { return row; }
    /** The next row. */
    Iterator &operator++() {
      row = accessor(result, ++index);
      return *this;
    }
    /** Whether both are at the same row. */
    bool operator==(const Iterator &other) const { return row == other.row; }
    /** Whether they are at different rows. */
    bool operator!=(const Iterator &other) const { return row != other.row; }

   private:
    const hexlume_result *result;
    Accessor accessor;
    int64_t index;
    const Row *row;
  };

  /** The rows that an accessor gives. */
  Rows(const hexlume_result *owner, Accessor rowAt) : result(owner), accessor(rowAt) {}
  /** The first row. */
  Iterator begin() const { return {result, accessor, 0}; }
  /** Past the last row. */
  Iterator end() const { return {result, accessor, -1}; }

 private:
  const hexlume_result *result;
  Accessor accessor;
};

/** The result of a call. It can be moved, not copied. */
class Result {
 public:
  /** Takes a result over. */
  explicit Result(hexlume_result *taken) : result(taken, hexlume_result_free) {}

  /** Whether the status is "ok". */
  explicit operator bool() const { return result && Status() == HEXLUME_STATUS_OK; }
  /** #HEXLUME_STATUS_OK and so on. */
  int32_t Status() const { return result ? hexlume_result_status(result.get()) : HEXLUME_STATUS_NO_MEMORY; }
  /** The short name of the status. */
  std::string_view StatusName() const { return hexlume_status_name(Status()); }
  /** What became of the call, as a sentence. */
  std::string_view Message(int32_t language = HEXLUME_ENGLISH) const {
    const char *const message = hexlume_result_message(result.get(), language);
    return message ? message : "";
  }
  /** The line of the file that the message names, or 0. */
  int64_t Line() const { return hexlume_result_line(result.get()); }
  /** The bytes of the metafile; empty if there is none. */
  std::string_view Metafile() const {
    const auto *const bytes = reinterpret_cast<const char *>(hexlume_result_metafile(result.get()));
    return {bytes, static_cast<std::size_t>(hexlume_result_metafile_size(result.get()))};
  }
  /** On Windows a new HENHMETAFILE, which the caller deletes. */
  void *Handle() const { return hexlume_result_handle(result.get()); }
  /** One of the numbers, #HEXLUME_NUMBER_STROKES and so on. */
  int64_t Number(int32_t number) const { return hexlume_result_number(result.get(), number); }
  /** The remarks. */
  Rows<hexlume_remark> Remarks() const { return {result.get(), hexlume_result_remark}; }
  /** The header of an inspected drawing. NULL for a conversion. */
  const hexlume_summary *Summary() const { return hexlume_result_summary(result.get()); }
  /** The layers of an inspected drawing. */
  Rows<hexlume_layer> Layers() const { return {result.get(), hexlume_result_layer}; }
  /** Its line types. */
  Rows<hexlume_line_type> LineTypes() const { return {result.get(), hexlume_result_line_type}; }
  /** Its dimension styles. */
  Rows<hexlume_dim_style> DimStyles() const { return {result.get(), hexlume_result_dim_style}; }
  /** Its blocks. */
  Rows<hexlume_block> Blocks() const { return {result.get(), hexlume_result_block}; }
  /** Its entities by kind and layer. */
  Rows<hexlume_entities> Entities() const { return {result.get(), hexlume_result_entities}; }
  /** Its texts. */
  Rows<hexlume_text> Texts() const { return {result.get(), hexlume_result_text}; }

 private:
  std::unique_ptr<hexlume_result, decltype(&hexlume_result_free)> result;
};

/** One call with C++ options, as the functions below make it. */
class Call {
 public:
  /** hexlume_convert() or hexlume_inspect(). */
  using Function = int32_t (*)(const hexlume_input *, const hexlume_options *, hexlume_result **);

  /** Calls function for this input. */
  static Result Run(Function function, const hexlume_input &input, const Options &options) {
    Call call(options);
    hexlume_result *result = nullptr;
    function(&input, &call.plain, &result);
    Result owned(result);
    if (call.thrown) std::rethrow_exception(call.thrown);
    return owned;
  }

 private:
  explicit Call(const Options &asked) : options(asked), plain(asked) {
    for (const std::string &name : options.hidden) names.push_back(name.c_str());
    if (!names.empty()) {
      plain.hidden_layers = names.data();
      plain.hidden_layer_count = static_cast<int32_t>(names.size());
    }
    if (!options.onProgress) return;
    plain.user = this;
    plain.progress = Report;
  }

  static int32_t Report(void *user, int32_t pass, int32_t passes, int64_t done, int64_t total) {
    Call &call = *static_cast<Call *>(user);
    try {
      return call.options.onProgress(pass, passes, done, total) ? 0 : 1;
    } catch (...) {
      call.thrown = std::current_exception();
      return 1;
    }
  }

  const Options &options;
  hexlume_options plain;
  std::vector<const char *> names;
  std::exception_ptr thrown;
};

/** The input of a file. */
inline hexlume_input FileInput(const std::string &path) {
  hexlume_input input = {};
  input.size = sizeof input;
  input.path = path.c_str();
  input.path_length = static_cast<int64_t>(path.size());
  return input;
}

/** The input of bytes in memory. */
inline hexlume_input BytesInput(std::string_view bytes) {
  hexlume_input input = {};
  input.size = sizeof input;
  input.bytes = bytes.data();
  input.byte_count = static_cast<int64_t>(bytes.size());
  return input;
}

/** Converts a file; the path is UTF-8. */
inline Result Convert(const std::string &path, const Options &options = {}) {
  return Call::Run(hexlume_convert, FileInput(path), options);
}

/** Converts bytes in memory. */
inline Result ConvertBytes(std::string_view bytes, const Options &options = {}) {
  return Call::Run(hexlume_convert, BytesInput(bytes), options);
}

/** Reports what a file contains; the path is UTF-8. */
inline Result Inspect(const std::string &path, const Options &options = {}) {
  return Call::Run(hexlume_inspect, FileInput(path), options);
}

/** Reports what bytes in memory contain. */
inline Result InspectBytes(std::string_view bytes, const Options &options = {}) {
  return Call::Run(hexlume_inspect, BytesInput(bytes), options);
}

}  // namespace hexlume::host

#endif
