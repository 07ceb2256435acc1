/* The header as a C compiler sees it. The answer is a text so that the test can tell what went wrong. */
#include "textio/c.h"

#include <stddef.h>
#include <string.h>

const char* what_plain_c_finds_wrong(void);

const char* what_plain_c_finds_wrong(void) {
    static const textio_unit text[] = {'a', ';', 'b', '\n', '1', ';', '2', '\n', '3', ';', '4', '\n'};
    textio_layout* layout = NULL;
    textio_reader* reader = NULL;
    const textio_unit* value = NULL;
    const char* wrong = NULL;
    size_t length = 0;
    int has_record = 0;
    if (textio_detect_utf16(text, sizeof text / sizeof *text, NULL, &layout) != TEXTIO_OK) {
        return "detection";
    }
    if (strcmp(textio_layout_delimiter(layout, 0, &length), ";") != 0 || length != 1) {
        wrong = "delimiter";
    } else if (textio_layout_names_line(layout, 0) != 0 || textio_layout_names_line(layout, 1000) == TEXTIO_NO_LINE) {
        wrong = "line of names";
    } else if (textio_reader_utf16(layout, 0, text, sizeof text / sizeof *text, &reader) != TEXTIO_OK ||
               textio_reader_next(reader, &has_record) != TEXTIO_OK || has_record != 1) {
        wrong = "reader";
    } else {
        value = textio_reader_field_utf16(reader, 1, &length);
        wrong = length == 1 && value[0] == '2' ? NULL : "value";
    }
    textio_reader_free(reader);
    textio_layout_free(layout);
    return wrong;
}
