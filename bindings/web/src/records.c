/*
 * Records for JavaScript, many with one call: a call from there costs more than most cells are
 * long.
 *
 * A text comes as a whole or, where it has to be waited for, in pieces. JavaScript cannot be waited
 * for in a callback; so when the pieces are used up, the reading breaks off and is taken up again
 * later.
 */
#include <textio/c.h>

#include <stdlib.h>
#include <string.h>

enum {
    most_units = 0x8000,  /* a batch is handed over when its cells have so many code units, */
    most_records = 0x400, /* or when it has so many records */
};

/* What JavaScript finds at the address of the records, as numbers of 32 bits. */
struct batch {
    size_t records;
    const textio_unit* units; /* the values of all cells, one behind the other */
    size_t unit_count;
    const size_t* numbers; /* of each record: line, word for its fault, fields, and where each ends
                              in units */
    size_t number_count;
    size_t hungry;   /* 1 if another piece is needed before there can be more records */
    const char* end; /* the word for why there are no more; "not_yet" while there may be */
    size_t irregular;
};

struct records {
    struct batch batch;
    textio_reader* reader;
    textio_unit* text;
    char* piece;
    size_t piece_at;
    size_t piece_end;
    int is_last_piece;
    int has_record; /* the reader stands at a record that is not in a batch yet */
    textio_unit* units;
    size_t unit_room;
    size_t* numbers;
    size_t number_room;
};

static size_t read_piece(void* context, char* buffer, size_t size) {
    struct records* const records = context;
    size_t count = records->piece_end - records->piece_at;
    if (count == 0 && !records->is_last_piece) {
        records->batch.hungry = 1;
        return TEXTIO_READ_FAILED;
    }
    if (count > size) {
        count = size;
    }
    if (count != 0) {
        memcpy(buffer, records->piece + records->piece_at, count);
    }
    records->piece_at += count;
    return count;
}

void records_free(struct records* records) {
    if (records != NULL) {
        textio_reader_free(records->reader);
        free(records->text);
        free(records->piece);
        free(records->units);
        free(records->numbers);
        free(records);
    }
}

static textio_status made(struct records* records, textio_status status, const char* policy,
                          struct records** result) {
    if (status == TEXTIO_OK) {
        status = textio_reader_policy(records->reader, policy);
    }
    if (status != TEXTIO_OK) {
        records_free(records);
        return status;
    }
    records->batch.end = textio_reader_end(records->reader);
    *result = records;
    return status;
}

/* Takes the text, which is from malloc, whatever becomes of the call. */
textio_status records_of_text(const textio_layout* layout, size_t proposal, const char* policy,
                              textio_unit* text, size_t units, struct records** result) {
    struct records* const records = calloc(1, sizeof *records);
    if (records == NULL) {
        free(text);
        return TEXTIO_NO_MEMORY;
    }
    records->text = text;
    return made(records, textio_reader_utf16(layout, proposal, text, units, &records->reader),
                policy, result);
}

textio_status records_of_pieces(const textio_layout* layout, size_t proposal, const char* policy,
                                struct records** result) {
    struct records* const records = calloc(1, sizeof *records);
    if (records == NULL) {
        return TEXTIO_NO_MEMORY;
    }
    return made(records,
                textio_reader_source(layout, proposal, read_piece, records, &records->reader),
                policy, result);
}

/* Where to put the next piece, of UTF-8; NULL if there is no memory. The one before must be used
 * up. */
char* records_piece(struct records* records, size_t size) {
    char* const piece = realloc(records->piece, size == 0 ? 1 : size);
    if (piece != NULL) {
        records->piece = piece;
        records->piece_at = 0;
        records->piece_end = size;
    }
    return piece;
}

void records_last_piece(struct records* records) {
    records->is_last_piece = 1;
}

/* The memory with room for `wanted` elements; NULL if there is none, and then it is as it was. */
static void* with_room(void* memory, size_t* room, size_t wanted, size_t size) {
    const size_t more = wanted + wanted / 2;
    void* grown;
    if (wanted <= *room && memory != NULL) {
        return memory;
    }
    grown = more > (size_t)-1 / size ? NULL : realloc(memory, more * size);
    if (grown != NULL) {
        *room = more;
    }
    return grown;
}

/* Puts the values of the record at which the reader stands behind those of the batch. */
static textio_status put_fields(struct records* records, size_t fields, size_t* ends) {
    size_t units = records->batch.unit_count;
    size_t field;
    for (field = 0; field < fields; ++field) {
        size_t length = 0;
        const textio_unit* const value = textio_reader_field_utf16(records->reader, field, &length);
        textio_unit* const room = value == NULL ? NULL
                                                : with_room(records->units, &records->unit_room,
                                                            units + length + 1, sizeof *value);
        if (room == NULL) {
            return TEXTIO_NO_MEMORY;
        }
        records->units = room;
        memcpy(room + units, value, length * sizeof *value);
        units += length;
        ends[field] = units;
    }
    records->batch.unit_count = units;
    return TEXTIO_OK;
}

static textio_status put_record(struct records* records) {
    struct batch* const batch = &records->batch;
    const size_t fields = textio_reader_fields(records->reader);
    textio_status status;
    size_t* const numbers = with_room(records->numbers, &records->number_room,
                                      batch->number_count + fields + 3, sizeof *records->numbers);
    if (numbers == NULL) {
        return TEXTIO_NO_MEMORY;
    }
    records->numbers = numbers;
    numbers[batch->number_count] = textio_reader_line(records->reader);
    numbers[batch->number_count + 1] = (size_t)textio_reader_fault(records->reader);
    numbers[batch->number_count + 2] = fields;
    status = put_fields(records, fields, numbers + batch->number_count + 3);
    if (status == TEXTIO_OK) {
        batch->number_count += fields + 3;
        ++batch->records;
    }
    return status;
}

/* Fills the batch anew. What goes wrong behind its first record is told by the next call. */
textio_status records_next(struct records* records) {
    struct batch* const batch = &records->batch;
    textio_status status = TEXTIO_OK;
    batch->records = batch->unit_count = batch->number_count = batch->hungry = 0;
    while (batch->records < most_records && batch->unit_count < most_units) {
        if (!records->has_record) {
            status = textio_reader_next(records->reader, &records->has_record);
            if (status != TEXTIO_OK || !records->has_record) {
                break;
            }
        }
        status = put_record(records);
        if (status != TEXTIO_OK) {
            break;
        }
        records->has_record = 0;
    }
    batch->units = records->units;
    batch->numbers = records->numbers;
    batch->end = textio_reader_end(records->reader);
    batch->irregular = textio_reader_irregular(records->reader);
    return batch->records != 0 || batch->hungry ? TEXTIO_OK : status;
}
