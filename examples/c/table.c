/* The table of a file, from plain C: its layout, and its records as values separated by tabs.
 *
 *   table FILE [HINT=VALUE ...]
 */
#include <textio/c.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* What the library asks for bytes. */
static size_t read_file(void* context, char* buffer, size_t size) {
    FILE* file = context;
    const size_t count = fread(buffer, 1, size, file);
    return count == 0 && ferror(file) ? TEXTIO_READ_FAILED : count;
}

/* Takes HINT=VALUE apart, in place. */
static textio_status add_hint(textio_hints* hints, char* argument) {
    char* equals = strchr(argument, '=');
    if (equals == NULL) {
        return textio_hints_set(hints, argument, "");
    }
    *equals = '\0';
    return textio_hints_set(hints, argument, equals + 1);
}

static void print_layout(const textio_layout* layout) {
    const char* delimiter = textio_layout_delimiter(layout, 0, NULL);
    size_t column;
    printf("# %s", textio_layout_kind(layout, 0));
    if (delimiter != NULL) {
        printf(" by '%s'", delimiter);
    }
    printf(", data from line %lu: %s\n",
           (unsigned long)textio_layout_first_data_line(layout, 0) + 1,
           textio_layout_why(layout, 0));
    for (column = 0; column < textio_layout_columns(layout, 0); ++column) {
        printf("%s%s (%s)", column == 0 ? "# " : ", ",
               textio_layout_column_name(layout, 0, column, NULL),
               textio_layout_column_class(layout, 0, column));
    }
    printf("\n");
}

/* Gives the status with which the reading ends. */
static textio_status print_records(textio_reader* reader) {
    int has_record = 0;
    size_t field;
    textio_status status = textio_reader_next(reader, &has_record);
    while (status == TEXTIO_OK && has_record) {
        for (field = 0; field < textio_reader_fields(reader); ++field) {
            const char* value = textio_reader_field_utf8(reader, field, NULL);
            if (value == NULL) {
                return TEXTIO_NO_MEMORY;
            }
            printf("%s%s", field == 0 ? "" : "\t", value);
        }
        printf("\n");
        status = textio_reader_next(reader, &has_record);
    }
    if (textio_reader_irregular(reader) > 0) {
        fprintf(stderr, "%lu records have other numbers of fields\n",
                (unsigned long)textio_reader_irregular(reader));
    }
    return status;
}

static textio_status print_table(FILE* file, const textio_hints* hints) {
    textio_layout* layout = NULL;
    textio_reader* reader = NULL;
    textio_status status = textio_detect_source(read_file, file, hints, &layout);
    if (status == TEXTIO_OK) {
        print_layout(layout);
        rewind(file);
        status = textio_reader_source(layout, 0, read_file, file, &reader);
    }
    if (status == TEXTIO_OK) {
        status = print_records(reader);
    }
    textio_reader_free(reader);
    textio_layout_free(layout);
    return status;
}

int main(int count, char** arguments) {
    textio_hints* hints = textio_hints_new();
    textio_status status = hints == NULL ? TEXTIO_NO_MEMORY : TEXTIO_OK;
    FILE* file = count > 1 ? fopen(arguments[1], "rb") : NULL;
    int i;
    for (i = 2; i < count && status == TEXTIO_OK; ++i) {
        status = add_hint(hints, arguments[i]);
    }
    if (file == NULL) {
        fprintf(stderr, "usage: table FILE [HINT=VALUE ...]\n");
        status = TEXTIO_BAD_ARGUMENT;
    } else if (status == TEXTIO_OK) {
        status = print_table(file, hints);
    }
    if (status != TEXTIO_OK && file != NULL) {
        fprintf(stderr, "%s\n", textio_last_error());
    }
    if (file != NULL) {
        fclose(file);
    }
    textio_hints_free(hints);
    return status == TEXTIO_OK ? EXIT_SUCCESS : EXIT_FAILURE;
}
