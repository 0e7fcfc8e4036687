/// @file
/// The header of a standard file: all fields of FILE_DESCRIPTION, FILE_NAME and FILE_SCHEMA (ISO 10303-21, clause 8.2).
///
///     STEPfileHeader header;
///     STEPreadOptions options;
///     options.header = &header;
///     if (model.ReadStandard("plant.stp", &options) != 0) ...
///     for (int i = 0; i < header.schemas.Count(); ++i) Use(header.schemas.At(i));   // "PLANT { 1 0 10303 99 }"
///
/// Texts are as they are in the file, without apostrophes: DecodeText of encoding.h returns their UTF-8. One thread at
/// a time uses the library.
#ifndef STEPRT_FILE_HEADER_H
#define STEPRT_FILE_HEADER_H

#include <steprt/export.h>
#include <steprt/text.h>

#include <cstddef>
#include <utility>

/// A list of texts, each with an owned copy.
class STEPRT_API STEPtexts {
 public:
  STEPtexts() = default;  ///< An empty list. Allocates nothing.
  ~STEPtexts();           ///< Releases the texts.
  STEPtexts(const STEPtexts&) = delete;
  STEPtexts& operator=(const STEPtexts&) = delete;

  int Count() const { return count_; }  ///< The number of texts.

  /// The text at a position, which counts from 0; the empty text if there is none. Valid until Clear.
  const char* At(int i) const { return i >= 0 && i < count_ ? texts_[i] : ""; }

  /// Appends a copy of the text; null counts as the empty text. Returns false, with nothing changed, when memory runs
  /// out.
  [[nodiscard]] bool Add(const char* text);

  void Clear();  ///< Releases the texts. The list is empty then.

  /// Exchanges the texts of two lists.
  void Swap(STEPtexts& other) {
    std::swap(texts_, other.texts_);
    std::swap(count_, other.count_);
    std::swap(capacity_, other.capacity_);
  }

 private:
  char** texts_ = nullptr;
  int count_ = 0;
  std::size_t capacity_ = 0;
};

/// What the header of a file says.
class STEPRT_API STEPfileHeader {
 public:
  STEPtexts description;           ///< FILE_DESCRIPTION: what the file is about
  STEPstring implementationLevel;  ///< such as 2;1
  STEPstring name;                 ///< FILE_NAME: the name of the file
  STEPstring timeStamp;            ///< such as 2026-11-25T16:29:00
  STEPtexts author;                ///< who made the content
  STEPtexts organization;          ///< and for whom
  STEPstring preprocessorVersion;  ///< the program that wrote the file
  STEPstring originatingSystem;    ///< the program that the content comes from
  STEPstring authorization;        ///< who released it
  STEPtexts schemas;               ///< FILE_SCHEMA: the names of the schemas, with their object identifiers

  void Clear();  ///< Empties every field.
};

#endif
