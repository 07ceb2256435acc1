#include "advice/tagged_records.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"
#include "advice/weights.hpp"
#include "ascii.hpp"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace textio::advice {

namespace {

/// Two to four capitals and digits, a capital first.
bool stands_in_tags(char16_t unit) {
    return ascii::is_upper(unit) || ascii::is_digit(unit);
}

bool is_tag(std::u16string_view text) {
    return text.size() >= 2 && text.size() <= 4 && ascii::is_upper(text.front()) &&
           std::all_of(text.begin(), text.end(), stands_in_tags);
}

bool is_tagged(std::span<const Field> row) {
    return row.size() >= 2 && is_tag(trimmed(row.front().view()));
}

/// More kinds than records of one format have: then the codes are data.
constexpr std::size_t most_kinds = 64;

/// The different tags of a sample, up to that limit.
class TagSet {
public:
    void add(std::u16string_view tag) {
        const auto known = std::span(tags_).first(size_);
        if (size_ < tags_.size() && std::find(known.begin(), known.end(), tag) == known.end()) {
            tags_[size_++] = tag;
        }
    }
    [[nodiscard]] std::size_t size() const { return size_; }

private:
    std::array<std::u16string_view, most_kinds> tags_;
    std::size_t size_ = 0;
};

/// Weighs some cells of the records.
class CellWeights {
public:
    explicit CellWeights(CellJudge& judge) : judge_(judge) {}

    /// Takes in the cells of a row, as far as they are not too many.
    void add(std::span<const Field> row) {
        constexpr std::size_t most_cells = 1000;
        for (const Field& field : row.first(std::min(row.size(), most_cells - cells_))) {
            sum_ += weights::of_cells[static_cast<std::size_t>(judge_.judge(field.view()))];
            ++cells_;
        }
    }

    [[nodiscard]] double mean() const { return share_of(sum_, static_cast<double>(cells_)); }

private:
    CellJudge& judge_;
    double sum_ = 0;
    std::size_t cells_ = 0;
};

/// The last unit of a line but for blanks; 0 for a blank line.
char16_t last_unit_of(const Field& line) {
    const std::u16string_view text = trimmed(line.view());
    return text.empty() ? u'\0' : text.back();
}

} // namespace

bool TaggedRecords::are_records(bool lines_end_alike) const noexcept {
    return tagged >= 3 && kinds >= 2 && kinds < most_kinds &&
           (lines_end_alike || (tagged - kinds) * 2 >= tagged);
}

TaggedRecords find_tagged_records(const FieldArray& sample, CellJudge& judge) {
    TaggedRecords found;
    TagSet tags;
    CellWeights cells(judge);
    for_each_row(sample, [&](std::size_t line, std::span<const Field> row) {
        ++found.rows;
        if (!is_tagged(row)) {
            return;
        }
        if (found.tagged++ == 0) {
            found.first_line = line;
            found.starts_text = found.rows == 1;
        }
        tags.add(trimmed(row.front().view()));
        found.widest = std::max(found.widest, row.size());
        cells.add(row);
    });
    found.kinds = tags.size();
    found.types = cells.mean();
    return found;
}

bool lines_end_alike(const FieldArray& lines) {
    MajorityVote<char16_t> vote;
    for (const Field& line : lines.fields) {
        vote.add(last_unit_of(line));
    }
    const char16_t sign = vote.value();
    if (sign == 0 || sign == u'.' || is_letter_or_digit(sign)) {
        return false;
    }
    const auto same =
        std::count_if(lines.fields.begin(), lines.fields.end(),
                      [sign](const Field& line) { return last_unit_of(line) == sign; });
    return static_cast<std::size_t>(same) * 10 >= lines.fields.size() * 9;
}

} // namespace textio::advice
