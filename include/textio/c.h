/// \file
/// The library for C, and for every language that can call C. C99 and later, and C++.
///
/// \code
/// textio_layout* layout = NULL;
/// if (textio_detect_utf8(bytes, size, NULL, &layout) != TEXTIO_OK) {
///     fprintf(stderr, "%s\n", textio_last_error());
/// }
/// printf("%s\n", textio_layout_json(layout, NULL));
/// textio_layout_free(layout);
/// \endcode
///
/// Handles are opaque. Nothing is thrown across this border. Every function can be called with null
/// pointers: one that gives a status then gives `TEXTIO_BAD_ARGUMENT`, one that gives a number 0,
/// one that gives a pointer `NULL`, and freeing nothing does nothing.
///
/// Texts go in and come out in UTF-8 unless a function says UTF-16, and malformed parts become
/// U+FFFD. Texts that come out end with a 0, which their length does not count; they may hold
/// others. Lines of a text are counted from 0. Sizes of UTF-16 are in code units, sizes of UTF-8 in
/// bytes.
///
/// Hints and layouts can be used by several threads at once as long as none changes or frees them.
/// A reader belongs to one thread at a time.
#ifndef TEXTIO_C_H
#define TEXTIO_C_H

#include "textio/c_types.h"
#include "textio/export.hpp" // nothing but macros

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/// The version of the library, such as "1.0.0"; valid for ever.
TEXTIO_EXPORT const char* textio_version(void);

/// What went wrong in the last call on this thread that did not give `TEXTIO_OK`, in words for
/// people. Empty if nothing did. Valid until the next call on this thread that fails.
TEXTIO_EXPORT const char* textio_last_error(void);

// ---- hints ----

/// Hints that say nothing; `NULL` if there is no memory. To be freed with `textio_hints_free`.
TEXTIO_EXPORT textio_hints* textio_hints_new(void);

/// Frees hints. Layouts that were found with them stay as they are.
TEXTIO_EXPORT void textio_hints_free(textio_hints* hints);

// clang-format off
/// The names of all hints, one for each index from 0 on; `NULL` behind the last. Valid for ever.
///
/// | name | value |
/// |---|---|
/// | `method` | `advice`, which weighs readings, and is usual; or `rules`, which decide by rules told in full |
/// | `rows` | rows to sample, usually 250 |
/// | `kind` | `delimited`, `space_aligned`, `fixed_width` or `line` |
/// | `delimiter` | what separates the fields; implies the kind |
/// | `widths` | list: widths of the columns in UTF-16 code units; implies the kind |
/// | `quote` | one code unit; empty for none |
/// | `comment` | what opens a comment; empty for none |
/// | `comment_end` | what closes it, unless that is the end of the line; only with `comment` |
/// | `decimal` | one code unit: the decimal mark |
/// | `thousands` | one code unit: the thousands separator; empty for none |
/// | `whitespace` | the code units that count as blank |
/// | `missing` | list: texts of cells that count as no value |
/// | `first_data_line` | the first line of the text with data, from 0 |
/// | `names_line` | the line of the text with the names of the columns, from 0; `none` |
///
/// The method `rules` cannot be told of a delimiter, a line of names, or a kind other than
/// `fixed_width`.
TEXTIO_EXPORT const char* textio_hint_name(size_t index);
// clang-format on

/// Says the value of the hint `name`; `NULL` takes it back. Both end with a 0. The value of a list
/// is its only member, but of `widths` numbers with commas between them. Values are copied. Gives
/// `TEXTIO_UNKNOWN_NAME` or `TEXTIO_BAD_VALUE`, with an error text that names the hint and the
/// value; the hints are then as they were.
TEXTIO_EXPORT textio_status textio_hints_set(textio_hints* hints, const char* name,
                                             const char* value);

/// The same for a value of `size` bytes, which may hold a 0.
TEXTIO_EXPORT textio_status textio_hints_set_sized(textio_hints* hints, const char* name,
                                                   const char* value, size_t size);

/// Adds one value to the list `name`. Gives `TEXTIO_BAD_VALUE` for a hint that is no list.
TEXTIO_EXPORT textio_status textio_hints_add(textio_hints* hints, const char* name,
                                             const char* value);

// ---- detection ----

/// Works out the layout of `text`, which may be `NULL` if it has no units. `hints` may be `NULL`.
/// On success `*layout` is to be freed with `textio_layout_free`, otherwise it is `NULL`. Any text
/// has a layout. Hints that contradict each other give `TEXTIO_BAD_VALUE`. The text may go away
/// afterwards. The cost is linear in what is sampled.
TEXTIO_EXPORT textio_status textio_detect_utf16(const textio_unit* text, size_t units,
                                                const textio_hints* hints, textio_layout** layout);

/// The same for UTF-8. A byte order mark is dropped. Of more than 4,194,304 bytes, those up to the
/// last end of a line within these are looked at.
TEXTIO_EXPORT textio_status textio_detect_utf8(const char* bytes, size_t size,
                                               const textio_hints* hints, textio_layout** layout);

/// The same for UTF-8 that a callback delivers, which is asked for no more bytes than are looked
/// at. To read the records afterwards, deliver the text from its start again.
TEXTIO_EXPORT textio_status textio_detect_source(textio_read read, void* context,
                                                 const textio_hints* hints, textio_layout** layout);

/// Frees a layout, and with it all that it told. Readers made from it go on.
TEXTIO_EXPORT void textio_layout_free(textio_layout* layout);

// ---- the answer ----

/// The whole answer as one JSON object on one line; it belongs to the layout. The members have the
/// names of the functions below, those of the best proposal stand at the top, and `proposals` lists
/// all. A text or number that is not there is `null`. `rows` at the top is what
/// `textio_layout_data_rows` gives. `length`, if not `NULL`, is set to the bytes.
TEXTIO_EXPORT const char* textio_layout_json(const textio_layout* layout, size_t* length);

/// The number of proposals, at least 1. Index 0 is the best everywhere below.
TEXTIO_EXPORT size_t textio_layout_proposals(const textio_layout* layout);

/// The score of the best proposal over that of the next with another kind of layout or another
/// delimiter: from 1, where they are alike, up. 3 and more can be relied on. 0 (in JSON `null`)
/// under the rules, which give none.
TEXTIO_EXPORT double textio_layout_confidence(const textio_layout* layout);

/// 1 if the text holds a table of two columns or more, as far as can be told; else 0.
TEXTIO_EXPORT int textio_layout_is_table(const textio_layout* layout);

/// The rows with data that the sample holds under the best proposal.
TEXTIO_EXPORT size_t textio_layout_data_rows(const textio_layout* layout);

/// The kind of layout: `delimited`, `space_aligned`, `fixed_width` or `line`. Valid for ever;
/// `NULL` for a proposal that is not there.
TEXTIO_EXPORT const char* textio_layout_kind(const textio_layout* layout, size_t proposal);

/// The delimiter of a delimited text; `NULL` for every other kind. This text and those below belong
/// to the layout; `length`, if not `NULL`, is set to the bytes, 0 where there is no text.
TEXTIO_EXPORT const char* textio_layout_delimiter(const textio_layout* layout, size_t proposal,
                                                  size_t* length);

/// The widths of fixed columns, in UTF-16 code units; `NULL` for every other kind. They belong to
/// the layout; `count`, if not `NULL`, is set to their number.
TEXTIO_EXPORT const size_t* textio_layout_widths(const textio_layout* layout, size_t proposal,
                                                 size_t* count);

/// The quote under which the text is read, whether or not it occurs; `NULL` for none.
TEXTIO_EXPORT const char* textio_layout_quote(const textio_layout* layout, size_t proposal,
                                              size_t* length);

/// What opens a comment; `NULL` if there are no comments.
TEXTIO_EXPORT const char* textio_layout_comment(const textio_layout* layout, size_t proposal,
                                                size_t* length);

/// What closes a comment; `NULL` if that is the end of the line.
TEXTIO_EXPORT const char* textio_layout_comment_end(const textio_layout* layout, size_t proposal,
                                                    size_t* length);

/// The decimal mark found in the numbers; `NULL` where nothing tells.
TEXTIO_EXPORT const char* textio_layout_decimal(const textio_layout* layout, size_t proposal,
                                                size_t* length);

/// The thousands separator found in the numbers; `NULL` where there is none.
TEXTIO_EXPORT const char* textio_layout_thousands(const textio_layout* layout, size_t proposal,
                                                  size_t* length);

/// The line of the text with the names of the columns; `TEXTIO_NO_LINE` if there is none.
TEXTIO_EXPORT size_t textio_layout_names_line(const textio_layout* layout, size_t proposal);

/// The first line of the text with data.
TEXTIO_EXPORT size_t textio_layout_first_data_line(const textio_layout* layout, size_t proposal);

/// The lines of the text above the data, as a reader of the layout counts them.
TEXTIO_EXPORT size_t textio_layout_header_lines(const textio_layout* layout, size_t proposal);

/// The number of columns; in JSON `num_variables`, beside the list `columns` of the best proposal.
TEXTIO_EXPORT size_t textio_layout_columns(const textio_layout* layout, size_t proposal);

/// The name of a column, from the left; empty where it has none.
TEXTIO_EXPORT const char* textio_layout_column_name(const textio_layout* layout, size_t proposal,
                                                    size_t column, size_t* length);

/// What most values of a column are: `number`, `text`, `datetime`, `date`, `duration`,
/// `short_duration`, `hex_number`, `binary_number`, `delimiter_like`, or `unknown` for a column
/// without values. Valid for ever.
TEXTIO_EXPORT const char* textio_layout_column_class(const textio_layout* layout, size_t proposal,
                                                     size_t column);

/// The cells of the sample in a column that hold a value.
TEXTIO_EXPORT size_t textio_layout_column_values(const textio_layout* layout, size_t proposal,
                                                 size_t column);

/// Those that are empty or count as missing, or that a row lacks.
TEXTIO_EXPORT size_t textio_layout_column_missing(const textio_layout* layout, size_t proposal,
                                                  size_t column);

/// The rows of the sample, those above the table included.
TEXTIO_EXPORT size_t textio_layout_rows(const textio_layout* layout, size_t proposal);

/// The rows of the table that have all its fields.
TEXTIO_EXPORT size_t textio_layout_regular_rows(const textio_layout* layout, size_t proposal);

/// The product of the terms, above 0 and at most 1. 0 (in JSON `null`) under the rules.
TEXTIO_EXPORT double textio_layout_score(const textio_layout* layout, size_t proposal);

/// The number of factors of the score; none under the rules.
TEXTIO_EXPORT size_t textio_layout_terms(const textio_layout* layout, size_t proposal);

/// The word for a factor, such as `consistency`. Belongs to the layout.
TEXTIO_EXPORT const char* textio_layout_term_name(const textio_layout* layout, size_t proposal,
                                                  size_t term);

/// The factor; 1 takes nothing away.
TEXTIO_EXPORT double textio_layout_term_value(const textio_layout* layout, size_t proposal,
                                              size_t term);

/// Why the text may be read so, and what speaks against it, in a line for people.
TEXTIO_EXPORT const char* textio_layout_why(const textio_layout* layout, size_t proposal);

// ---- reading on ----

/// Makes a reader of the records of `text` under a proposal, from its first line with data to the
/// end of the text, however long. `text` must outlive the reader; the layout need not. On success
/// `*reader` is to be freed with `textio_reader_free`, otherwise it is `NULL`.
TEXTIO_EXPORT textio_status textio_reader_utf16(const textio_layout* layout, size_t proposal,
                                                const textio_unit* text, size_t units,
                                                textio_reader** reader);

/// The same for UTF-8, of which only a piece at a time is converted. `bytes` must outlive the
/// reader.
TEXTIO_EXPORT textio_status textio_reader_utf8(const textio_layout* layout, size_t proposal,
                                               const char* bytes, size_t size,
                                               textio_reader** reader);

/// The same for UTF-8 that a callback delivers, from the very start of the text. The memory needed
/// does not depend on its length. `context` must outlive the reader.
TEXTIO_EXPORT textio_status textio_reader_source(const textio_layout* layout, size_t proposal,
                                                 textio_read read, void* context,
                                                 textio_reader** reader);

/// Frees a reader, and with it all that it told.
TEXTIO_EXPORT void textio_reader_free(textio_reader* reader);

/// What is to become of records with a fault: `keep`, which is usual, gives them as they are; `pad`
/// adds empty fields to those that lack some; `skip` passes them over; `stop` ends the reading in
/// front of the first. To be said before the first `textio_reader_next`. Gives `TEXTIO_BAD_VALUE`
/// for another word.
TEXTIO_EXPORT textio_status textio_reader_policy(textio_reader* reader, const char* policy);

/// Goes to the next record. `*has_record` is set to 1, or to 0 if there is none. What the reader
/// gave of the record before is no longer valid. After `TEXTIO_NO_MEMORY` and
/// `TEXTIO_SOURCE_FAILED` it can be called again, and no record is lost.
TEXTIO_EXPORT textio_status textio_reader_next(textio_reader* reader, int* has_record);

/// The number of fields of the record; 0 if there is none.
TEXTIO_EXPORT size_t textio_reader_fields(const textio_reader* reader);

/// The value of a cell, without the blanks and quotes around it. Valid until the next record is
/// gone to. It does not end with a 0; `length` is set to its code units. `NULL` if there is no such
/// field, or no memory, which `textio_last_error` then tells.
TEXTIO_EXPORT const textio_unit* textio_reader_field_utf16(textio_reader* reader, size_t field,
                                                           size_t* length);

/// The same in UTF-8, with a 0 at its end; `length`, if not `NULL`, is set to its bytes.
TEXTIO_EXPORT const char* textio_reader_field_utf8(textio_reader* reader, size_t field,
                                                   size_t* length);

/// The line of the text on which the record starts.
TEXTIO_EXPORT size_t textio_reader_line(const textio_reader* reader);

/// What is wrong with the record: `none`, `too_few_fields`, `too_many_fields` or `open_quote`.
/// Valid for ever.
TEXTIO_EXPORT const char* textio_reader_fault(const textio_reader* reader);

/// Records with a fault so far, those that were passed over included.
TEXTIO_EXPORT size_t textio_reader_irregular(const textio_reader* reader);

/// Why there is no further record: `not_yet` while there may be one; `of_text`; `at_mark`, a record
/// that starts with U+FFFF; `stopped`, as the policy says; `too_long`, a record of more than
/// 16,777,216 code units. Valid for ever.
TEXTIO_EXPORT const char* textio_reader_end(const textio_reader* reader);

#ifdef __cplusplus
}
#endif

#endif
