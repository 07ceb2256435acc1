#include "advice/name_words.hpp"

#include "advice/cell_kind.hpp"
#include "advice/lines.hpp"
#include "advice/number_shape.hpp"
#include "advice/numbers_as_names.hpp"
#include "ascii.hpp"

#include <algorithm>
#include <iterator>

namespace textio::advice {

namespace {

bool equal_texts(std::u16string_view left, std::u16string_view right) {
    return left.size() == right.size() && ascii::equals_ignoring_case(left, right);
}

bool has_digit(std::u16string_view text) {
    return std::any_of(text.begin(), text.end(), ascii::is_digit);
}

/// Words that name a column in many tables and are values in few.
bool is_usual_name(std::u16string_view cell) {
    static constexpr std::u16string_view names[] = {
        u"id",          u"name",    u"date",   u"time",    u"type",    u"code",   u"value",
        u"description", u"title",   u"key",    u"label",   u"count",   u"number", u"category",
        u"email",       u"address", u"city",   u"state",   u"country", u"year",   u"month",
        u"day",         u"class",   u"status", u"price",   u"amount",  u"unit",   u"text",
        u"url",         u"first",   u"last",   u"comment", u"size",    u"region", u"group",
        u"index",       u"notes",   u"symbol", u"username"};
    std::u16string_view text = bare(cell);
    const std::size_t tail = text.find_last_of(u" _-.");
    if (tail != std::u16string_view::npos) {
        text = text.substr(tail + 1);
    }
    return std::any_of(std::begin(names), std::end(names), [&](std::u16string_view name) {
        return ascii::equals_ignoring_case(text, name);
    });
}

/// Whether runs of letters, of digits and the signs between them follow each other alike.
bool have_one_pattern(std::u16string_view left, std::u16string_view right) {
    const auto kind = [](char16_t unit) -> char16_t {
        if (ascii::is_digit(unit)) {
            return u'9';
        }
        return is_letter(unit) ? u'a' : unit;
    };
    std::size_t one = 0;
    std::size_t other = 0;
    while (one < left.size() && other < right.size()) {
        const char16_t unit = kind(left[one]);
        if (unit != kind(right[other])) {
            return false;
        }
        do {
            ++one;
        } while (one < left.size() && kind(left[one]) == unit);
        do {
            ++other;
        } while (other < right.size() && kind(right[other]) == unit);
    }
    return one == left.size() && other == right.size();
}

/// What the cells of one column look like, next to a cell that may be its name.
class ColumnBelow {
public:
    explicit ColumnBelow(const Grid& grid) : grid_(grid) { texts_.reserve(grid.rows()); }

    void look_at(std::size_t column) {
        texts_.clear();
        filled_ = 0;
        for (std::size_t row = 0; row < grid_.rows(); ++row) {
            texts_.push_back(bare(grid_.cell(row, column)));
            filled_ += texts_.back().empty() ? 0U : 1U;
        }
    }

    /// How many of the cells that hold something have a property.
    template <class Property>
    [[nodiscard]] std::size_t count(Property property) const {
        return static_cast<std::size_t>(std::count_if(texts_.begin(), texts_.end(), [&](auto text) {
            return !text.empty() && property(text);
        }));
    }

    /// The share of them.
    template <class Property>
    [[nodiscard]] double share(Property property) const {
        return filled_ == 0 ? 0
                            : static_cast<double>(count(property)) / static_cast<double>(filled_);
    }

    /// How many cells hold something.
    [[nodiscard]] std::size_t filled() const { return filled_; }

    /// Whether few values stand in many rows. Neighbours and the first cell are compared.
    [[nodiscard]] bool repeats() const {
        std::size_t repeated = 0;
        for (std::size_t row = 1; row < texts_.size(); ++row) {
            const std::u16string_view text = texts_[row];
            const bool is_repeated = text == texts_[row - 1] || text == texts_[0];
            repeated += !text.empty() && is_repeated ? 1U : 0U;
        }
        return repeated * 4 > texts_.size();
    }

private:
    const Grid& grid_;
    std::vector<std::u16string_view> texts_; ///< of the column, bare
    std::size_t filled_ = 0;
};

bool starts_upper(std::u16string_view text) {
    return ascii::is_upper(text.front());
}

bool is_all_upper(std::u16string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char16_t unit) { return unit >= u'a' && unit <= u'z'; });
}

bool has_blank(std::u16string_view text) {
    return text.find(u' ') != std::u16string_view::npos;
}

bool has_underscore(std::u16string_view text) {
    return text.find(u'_') != std::u16string_view::npos;
}

/// What the digits of a name and of the values say: names have few.
double likeness_by_digits(std::u16string_view name, const ColumnBelow& below) {
    if (!has_digit(name)) {
        return below.share(has_digit) > 0.6 ? 1 : 0;
    }
    const bool is_like_values =
        below.share([&](auto text) { return have_one_pattern(text, name); }) > 0.5;
    return (is_like_values ? -2 : 0) - (below.share(has_digit) > 0.9 ? 0.5 : 0);
}

/// What the case of a name and of the values says: they differ.
double likeness_by_case(std::u16string_view name, const ColumnBelow& below) {
    double likeness = 0;
    if (ascii::is_letter(name.front()) && !starts_upper(name) && below.share(starts_upper) > 0.8) {
        likeness += 1;
    }
    if (is_all_upper(name) != (below.share(is_all_upper) > 0.5)) {
        likeness += is_all_upper(name) ? 0.8 : 0.4;
    }
    return likeness;
}

/// What lengths and blanks say: a name is one word over values of several, or of another length.
double likeness_by_form(std::u16string_view name, const ColumnBelow& below) {
    double likeness = 0;
    if (!has_blank(name) && below.share(has_blank) > 0.6) {
        likeness += 0.5;
    }
    if (has_underscore(name) && below.share(has_underscore) < 0.2) {
        likeness += 1;
    }
    const std::size_t length = name.size();
    const auto is_of_another_length = [&](std::u16string_view text) {
        return text.size() > 2 * length + 2 || length > 2 * text.size() + 2;
    };
    return likeness + (below.share(is_of_another_length) > 0.8 ? 0.5 : 0);
}

/// Whether a word stands over a column of numbers, which are texts because they are in quotes. One
/// of these may be another name, and a few may be words for missing values.
bool is_word_over_numbers(std::u16string_view cell, const ColumnBelow& below) {
    constexpr std::size_t least_numbers = 3;
    const std::u16string_view name = bare(cell);
    if (!has_letter(name) || has_digit(name) || stands_for_nothing(name)) {
        return false;
    }
    const std::size_t numbers = below.count(looks_like_number);
    const std::size_t others = below.filled() - numbers;
    return numbers >= least_numbers && others <= std::max<std::size_t>(1, numbers / 20);
}

/// How much more a text looks like a column's name than like one of its values.
double name_likeness(std::u16string_view cell, const ColumnBelow& below) {
    const std::u16string_view name = bare(cell);
    if (name.empty()) {
        return -1;
    }
    if (below.share([&](auto text) { return equal_texts(text, name); }) > 0) {
        return -3;
    }
    if (!has_letter(name)) {
        return -2;
    }
    return (is_usual_name(name) ? 1.5 : 0) + (below.repeats() ? 1 : 0) +
           likeness_by_digits(name, below) + likeness_by_case(name, below) +
           likeness_by_form(name, below);
}

} // namespace

std::u16string_view bare(std::u16string_view cell, char16_t quote) noexcept {
    std::u16string_view text = trimmed(cell);
    if (text.size() >= 2 && text.front() == text.back() &&
        (text.front() == u'"' || text.front() == u'\'' || (text.front() == quote && quote != 0))) {
        text = text.substr(1, text.size() - 2);
    }
    return trimmed(text);
}

bool names_text_columns(const std::vector<std::u16string_view>& row, const Grid& grid) {
    constexpr double least_mean = 0.5;
    if (grid.rows() == 0) {
        return false;
    }
    for (std::size_t one = 0; one < row.size(); ++one) {
        for (std::size_t other = 0; other < one; ++other) {
            if (!bare(row[one]).empty() && equal_texts(bare(row[one]), bare(row[other]))) {
                return false;
            }
        }
        if (one > 16) {
            break;
        }
    }
    if (names_by_numbering(row, grid)) {
        return true;
    }
    double likeness = 0;
    ColumnBelow below(grid);
    const std::size_t columns = std::min(row.size(), grid.columns);
    for (std::size_t column = 0; column < columns; ++column) {
        below.look_at(column);
        if (is_word_over_numbers(row[column], below)) {
            return true;
        }
        likeness += name_likeness(row[column], below);
    }
    return likeness > least_mean * static_cast<double>(columns);
}

bool begins_with_key(const std::vector<std::u16string_view>& row, const Grid& grid) {
    if (row.empty() || grid.columns == 0 || !trimmed(row.front()).ends_with(u':')) {
        return false;
    }
    std::size_t keys = 0;
    for (std::size_t below = 0; below < grid.rows(); ++below) {
        keys += trimmed(grid.cell(below, 0)).ends_with(u':') ? 1U : 0U;
    }
    return keys * 2 > grid.rows();
}

} // namespace textio::advice
