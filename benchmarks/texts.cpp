#include "texts.hpp"

namespace bench {

namespace {

constexpr std::u16string_view digit_units = u"0123456789";
constexpr std::u16string_view letter_units = u"abcdefghijklmnopqrstuvwxyz";
constexpr std::u16string_view field_units =
    u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

std::u16string some_of(RandomSource& random, std::u16string_view units, std::size_t count) {
    std::u16string text(count, u'\0');
    for (char16_t& unit : text) {
        unit = random.one_of(units);
    }
    return text;
}

std::u16string padded_left(std::u16string text, std::size_t width) {
    return text.size() < width ? std::u16string(width - text.size(), u' ') + text : text;
}

std::u16string padded_right(std::u16string text, std::size_t width) {
    text.resize(width, u' ');
    return text;
}

std::u16string table_field(const TableShape& shape, RandomSource& random) {
    std::u16string field = some_of(random, field_units,
                                   random.between(shape.least_field_units, shape.most_field_units));
    if (!shape.quoted) {
        return field;
    }
    if (random.between(1, 4) == 1) {
        field[field.size() / 2] = shape.delimiter.front();
    }
    return u'"' + field + u'"';
}

std::u16string table_row(const TableShape& shape, RandomSource& random) {
    std::u16string row;
    for (std::size_t column = 0; column < table_columns; ++column) {
        if (column > 0 && shape.most_blanks > 0) {
            row.append(random.between(1, shape.most_blanks), u' ');
        } else if (column > 0) {
            row += shape.delimiter;
        }
        row += table_field(shape, random);
    }
    return row.append(shape.line_ending);
}

std::u16string fixed_width_row(RandomSource& random) {
    constexpr std::size_t width = 8;
    std::u16string row;
    for (std::size_t column = 0; column < table_columns; column += 2) {
        row += padded_left(random.decimal(4, 2, u'.'), width);
        row += padded_right(random.letters(random.between(3, width)), width);
    }
    return row + u'\n';
}

template <class MakeRow>
std::u16string rows_up_to(std::size_t units, MakeRow make_row) {
    RandomSource random;
    std::u16string text;
    for (std::u16string row = make_row(random); text.size() + row.size() <= units;
         row = make_row(random)) {
        text += row;
    }
    return text;
}

template <class MakeRow>
std::u16string so_many_rows(std::size_t rows, MakeRow make_row) {
    RandomSource random;
    std::u16string text;
    for (std::size_t row = 0; row < rows; ++row) {
        text += make_row(random);
    }
    return text;
}

/// Five columns that numbers, words and a date fill, with `delimiter` between them.
std::u16string delimited_row(RandomSource& random, std::u16string_view delimiter,
                             char16_t decimal_mark) {
    std::u16string row = random.digits(5);
    row.append(delimiter).append(random.letters(random.between(3, 12)));
    row.append(delimiter).append(random.date());
    row.append(delimiter).append(random.decimal(4, 2, decimal_mark));
    row.append(delimiter).append(random.decimal(2, 3, decimal_mark));
    return row + u'\n';
}

} // namespace

std::u16string RandomSource::letters(std::size_t count) {
    return some_of(*this, letter_units, count);
}

std::u16string RandomSource::digits(std::size_t count) {
    return some_of(*this, digit_units, count);
}

std::u16string RandomSource::decimal(std::size_t most_digits, std::size_t decimals,
                                     char16_t decimal_mark) {
    return digits(between(1, most_digits)) + decimal_mark + digits(decimals);
}

std::u16string RandomSource::date() {
    const auto two_digits = [this](std::size_t low, std::size_t high) {
        const std::size_t value = between(low, high);
        return std::u16string{digit_units[value / 10], digit_units[value % 10]};
    };
    return u"20" + two_digits(0, 25) + u'-' + two_digits(1, 12) + u'-' + two_digits(1, 28);
}

std::u16string table_of_units(const TableShape& shape, std::size_t units) {
    return rows_up_to(units, [&](RandomSource& random) { return table_row(shape, random); });
}

std::u16string table_of_rows(const TableShape& shape, std::size_t rows) {
    return so_many_rows(rows, [&](RandomSource& random) { return table_row(shape, random); });
}

std::u16string fixed_width_table_of_units(std::size_t units) {
    return rows_up_to(units, fixed_width_row);
}

std::u16string fixed_width_table_of_rows(std::size_t rows) {
    return so_many_rows(rows, fixed_width_row);
}

std::u16string comma_rows(std::size_t rows) {
    return so_many_rows(rows,
                        [](RandomSource& random) { return delimited_row(random, u",", u'.'); });
}

std::u16string semicolon_rows(std::size_t rows) {
    return so_many_rows(rows,
                        [](RandomSource& random) { return delimited_row(random, u";", u','); });
}

std::u16string tab_rows(std::size_t rows) {
    return so_many_rows(rows,
                        [](RandomSource& random) { return delimited_row(random, u"\t", u'.'); });
}

std::u16string bar_rows(std::size_t rows) {
    return so_many_rows(rows, [](RandomSource& random) {
        return random.digits(5) + u'|' + random.letters(random.between(3, 8)) + u", " +
               random.letters(random.between(4, 8)) + u'|' + random.digits(3) + u'|' +
               random.decimal(3, 2, u'.') + u'\n';
    });
}

std::u16string space_aligned_rows(std::size_t rows) {
    return so_many_rows(rows, [](RandomSource& random) {
        std::u16string row = padded_left(random.decimal(3, 3, u'.'), 8);
        for (std::size_t column = 1; column < 5; ++column) {
            row += padded_left(random.decimal(3, 4, u'.'), 10);
        }
        return row + u'\n';
    });
}

std::u16string fixed_width_rows(std::size_t rows) {
    return so_many_rows(rows, [](RandomSource& random) {
        std::u16string name = random.letters(random.between(3, 8));
        for (std::size_t word = random.between(0, 1); word > 0; --word) {
            name += u' ' + random.letters(random.between(3, 8));
        }
        const std::u16string remark = random.between(1, 3) == 1 ? u"manual" : u"";
        return random.digits(5) + padded_right(random.letters(2), 3) + padded_right(name, 20) +
               padded_left(random.decimal(2, 2, u'.'), 8) +
               padded_left(random.decimal(2, 1, u'.'), 8) + u"  " + padded_right(remark, 6) + u'\n';
    });
}

std::u16string quoted_rows(std::size_t rows) {
    return so_many_rows(rows, [](RandomSource& random) {
        const char16_t inside = random.between(1, 5) == 1 ? u'\n' : u' ';
        return random.digits(4) + u",\"" + random.letters(random.between(3, 9)) + u", " +
               random.letters(random.between(3, 9)) + u"\",\"" +
               random.letters(random.between(8, 24)) + inside + u"\"\"" + random.letters(5) +
               u"\"\" " + random.letters(random.between(8, 24)) + u"\"," + random.digits(2) + u'\n';
    });
}

std::u16string prose_rows(std::size_t rows) {
    return so_many_rows(rows, [](RandomSource& random) {
        std::u16string row = random.letters(random.between(2, 9));
        for (std::size_t word = random.between(4, 13); word > 0; --word) {
            const std::size_t mark = random.between(1, 40);
            row += mark == 1 ? u", " : mark <= 4 ? u". " : u" ";
            row += random.letters(random.between(1, 10));
        }
        return row + u'\n';
    });
}

std::u16string date_rows(std::size_t rows) {
    return so_many_rows(rows, [](RandomSource& random) { return random.date() + u'\n'; });
}

} // namespace bench
