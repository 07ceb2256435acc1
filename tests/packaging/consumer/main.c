/* The same in plain C. */
#include <textio/c.h>

#include <stdio.h>
#include <string.h>

int main(void) {
    const char* text = "when;what\n2024-03-01;3,5\n2024-03-02;4,25\n";
    textio_layout* layout = NULL;
    int is_right = textio_detect_utf8(text, strlen(text), NULL, &layout) == TEXTIO_OK &&
                   strcmp(textio_layout_delimiter(layout, 0, NULL), ";") == 0 && textio_layout_columns(layout, 0) == 2 &&
                   strcmp(textio_layout_column_class(layout, 0, 0), "date") == 0;
    printf("%s %s\n", textio_version(), is_right ? "right" : "wrong");
    textio_layout_free(layout);
    return is_right ? 0 : 1;
}
