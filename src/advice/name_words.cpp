#include "advice/name_words.hpp"

#include "advice/cell_kind.hpp"
#include "advice/counts.hpp"
#include "advice/lines.hpp"
#include "advice/numbers_as_names.hpp"
#include "ascii.hpp"

#include <algorithm>
#include <iterator>
#include <span>

namespace textio::advice {

namespace {

std::u16string_view last_word_of(std::u16string_view name) {
    const std::size_t tail = name.find_last_of(u" _-.");
    return tail == std::u16string_view::npos ? name : name.substr(tail + 1);
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
    const std::u16string_view word = last_word_of(bare(cell));
    return std::any_of(std::begin(names), std::end(names), [word](std::u16string_view name) {
        return ascii::equals_ignoring_case(word, name);
    });
}

/// Letters are alike, and so are digits; other signs are themselves.
char16_t pattern_of(char16_t unit) {
    if (ascii::is_digit(unit)) {
        return u'9';
    }
    return is_letter(unit) ? u'a' : unit;
}

/// What follows the units with which a text begins and which are alike.
std::u16string_view behind_pattern(std::u16string_view text) {
    const char16_t first = pattern_of(text.front());
    const auto* const end = std::find_if(
        text.begin(), text.end(), [first](char16_t unit) { return pattern_of(unit) != first; });
    return text.substr(static_cast<std::size_t>(end - text.begin()));
}

/// Whether runs of letters, of digits and the signs between them follow each other alike.
bool have_one_pattern(std::u16string_view left, std::u16string_view right) {
    while (!left.empty() && !right.empty()) {
        if (pattern_of(left.front()) != pattern_of(right.front())) {
            return false;
        }
        left = behind_pattern(left);
        right = behind_pattern(right);
    }
    return left.empty() && right.empty();
}

/// What the cells of one column look like, next to a cell that may be its name.
class ColumnBelow {
public:
    explicit ColumnBelow(const Grid& grid) : grid_(grid) { texts_.reserve(grid.rows()); }

    void look_at(std::size_t column) {
        texts_.clear();
        for (std::size_t row = 0; row < grid_.rows(); ++row) {
            texts_.push_back(bare(grid_.cell(row, column)));
        }
        const auto empty = std::count(texts_.begin(), texts_.end(), std::u16string_view());
        filled_ = texts_.size() - static_cast<std::size_t>(empty);
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
        return share_of(count(property), filled_);
    }

    /// How many cells hold something.
    [[nodiscard]] std::size_t filled() const { return filled_; }

    /// Whether few values stand in many rows. Neighbours and the first cell are compared.
    [[nodiscard]] bool repeats() const {
        std::size_t repeated = 0;
        for (std::size_t row = 1; row < texts_.size(); ++row) {
            repeated += one_if(!texts_[row].empty() && is_repeated(row));
        }
        return repeated * 4 > texts_.size();
    }

private:
    [[nodiscard]] bool is_repeated(std::size_t row) const {
        return texts_[row] == texts_[row - 1] || texts_[row] == texts_.front();
    }

    const Grid& grid_;
    std::vector<std::u16string_view> texts_; ///< of the column, bare
    std::size_t filled_ = 0;
};

bool starts_upper(std::u16string_view text) {
    return ascii::is_upper(text.front());
}

bool is_lower(char16_t unit) {
    return unit >= u'a' && unit <= u'z';
}

bool is_all_upper(std::u16string_view text) {
    return std::none_of(text.begin(), text.end(), is_lower);
}

bool has_blank(std::u16string_view text) {
    return holds(text, u' ');
}

bool has_underscore(std::u16string_view text) {
    return holds(text, u'_');
}

/// What a sign of a name adds to its likeness.
constexpr double points_if(bool holds, double points) {
    return holds ? points : 0;
}

/// What the digits of a name and of the values say: names have few.
double likeness_by_digits(std::u16string_view name, const ColumnBelow& below) {
    const double with_digits = below.share(has_digit);
    if (!has_digit(name)) {
        return points_if(with_digits > 0.6, 1);
    }
    const double like_name =
        below.share([name](auto text) { return have_one_pattern(text, name); });
    return points_if(like_name > 0.5, -2) + points_if(with_digits > 0.9, -0.5);
}

/// What the case of a name and of the values says: they differ.
double likeness_by_case(std::u16string_view name, const ColumnBelow& below) {
    const bool is_lower_over_upper = is_lower(name.front()) && below.share(starts_upper) > 0.8;
    const bool is_upper = is_all_upper(name);
    const bool is_other_case = is_upper != (below.share(is_all_upper) > 0.5);
    return points_if(is_lower_over_upper, 1) + points_if(is_other_case, is_upper ? 0.8 : 0.4);
}

bool are_of_other_lengths(std::u16string_view one, std::u16string_view other) {
    const auto [shorter, longer] = std::minmax({one.size(), other.size()});
    return longer > 2 * shorter + 2;
}

/// What lengths and blanks say: a name is one word over values of several, or of another length.
double likeness_by_form(std::u16string_view name, const ColumnBelow& below) {
    const bool is_word_over_several = !has_blank(name) && below.share(has_blank) > 0.6;
    const bool has_lone_underscore = has_underscore(name) && below.share(has_underscore) < 0.2;
    const double of_other_length =
        below.share([name](auto text) { return are_of_other_lengths(name, text); });
    return points_if(is_word_over_several, 0.5) + points_if(has_lone_underscore, 1) +
           points_if(of_other_length > 0.8, 0.5);
}

bool is_plain_name(std::u16string_view name) {
    return has_letter(name) && !has_digit(name) && !stands_for_nothing(name);
}

/// Whether half of a text is digits: a number, a date, a code.
bool is_mostly_digits(std::u16string_view text) {
    const auto digits = std::count_if(text.begin(), text.end(), ascii::is_digit);
    return 2 * static_cast<std::size_t>(digits) >= text.size();
}

/// Whether a word stands over a column of values that are mostly digits, which are texts because
/// they are in quotes, or are codes. One of these may be another name, and a few may be words for
/// missing values.
bool is_word_over_digits(std::u16string_view cell, const ColumnBelow& below) {
    constexpr std::size_t least_values = 3;
    if (!is_plain_name(bare(cell))) {
        return false;
    }
    const std::size_t values = below.count(is_mostly_digits);
    const std::size_t others = below.filled() - values;
    return values >= least_values && others <= std::max<std::size_t>(1, values / 20);
}

/// How much more a text looks like a column's name than like one of its values.
double name_likeness(std::u16string_view cell, const ColumnBelow& below) {
    const std::u16string_view name = bare(cell);
    if (name.empty()) {
        return -1;
    }
    const auto repeats_name = [name](std::u16string_view text) {
        const bool is_name_itself = text.data() == name.data();
        return !is_name_itself && ascii::equals_ignoring_case(text, name);
    };
    if (below.count(repeats_name) != 0) {
        return -3;
    }
    if (!has_letter(name)) {
        return -2;
    }
    return points_if(is_usual_name(name), 1.5) + points_if(below.repeats(), 1) +
           likeness_by_digits(name, below) + likeness_by_case(name, below) +
           likeness_by_form(name, below);
}

/// Whether a text has such a quote, or a usual one, at both ends.
bool is_in_quotes(std::u16string_view text, char16_t quote) {
    if (text.size() < 2 || text.front() != text.back()) {
        return false;
    }
    return holds(u"\"'", text.front()) || (text.front() == quote && quote != 0);
}

/// Whether two cells at the beginning of a row are the same name.
bool has_a_name_twice(const std::vector<std::u16string_view>& row) {
    constexpr std::size_t most_compared = 18;
    std::vector<std::u16string_view> names;
    for (const std::u16string_view cell :
         std::span(row).first(std::min(row.size(), most_compared))) {
        const std::u16string_view name = bare(cell);
        const auto is_same = [name](auto other) {
            return ascii::equals_ignoring_case(other, name);
        };
        if (!name.empty() && std::any_of(names.begin(), names.end(), is_same)) {
            return true;
        }
        names.push_back(name);
    }
    return false;
}

} // namespace

std::u16string_view bare(std::u16string_view cell, char16_t quote) noexcept {
    const std::u16string_view text = trimmed(cell);
    return is_in_quotes(text, quote) ? trimmed(text.substr(1, text.size() - 2)) : text;
}

bool names_text_columns(const std::vector<std::u16string_view>& row, const Grid& grid) {
    constexpr double least_mean = 0.5;
    if (grid.rows() == 0 || has_a_name_twice(row)) {
        return false;
    }
    if (names_by_numbering(row, grid)) {
        return true;
    }
    double likeness = 0;
    ColumnBelow below(grid);
    const std::size_t columns = std::min(row.size(), grid.columns);
    for (std::size_t column = 0; column < columns; ++column) {
        below.look_at(column);
        if (is_word_over_digits(row[column], below)) {
            return true;
        }
        likeness += name_likeness(row[column], below);
    }
    return likeness > least_mean * static_cast<double>(columns);
}

bool begins_with_key(const std::vector<std::u16string_view>& row, const Grid& grid) {
    const auto is_key = [](std::u16string_view cell) { return trimmed(cell).ends_with(u':'); };
    if (row.empty() || !is_key(row.front())) {
        return false;
    }
    std::size_t keys = 0;
    for (std::size_t below = 0; below < grid.rows(); ++below) {
        keys += one_if(is_key(grid.cell(below, 0)));
    }
    return keys * 2 > grid.rows();
}

} // namespace textio::advice
