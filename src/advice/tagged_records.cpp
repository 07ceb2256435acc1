#include "advice/tagged_records.hpp"

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
bool is_tag(std::u16string_view text) {
    return text.size() >= 2 && text.size() <= 4 && ascii::is_upper(text.front()) &&
           std::all_of(text.begin(), text.end(), [](char16_t unit) {
               return ascii::is_upper(unit) || ascii::is_digit(unit);
           });
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

} // namespace

bool TaggedRecords::are_records(bool lines_end_alike) const noexcept {
    return tagged >= 3 && kinds >= 2 && kinds < most_kinds &&
           (lines_end_alike || (tagged - kinds) * 2 >= tagged);
}

TaggedRecords find_tagged_records(const FieldArray& sample, CellJudge& judge) {
    constexpr std::size_t most_cells = 1000;
    TaggedRecords found;
    TagSet tags;
    double weight = 0;
    std::size_t cells = 0;
    for (std::size_t line = 0; line < sample.line_count(); ++line) {
        const auto fields = sample.line(line);
        if (fields.empty()) {
            continue;
        }
        ++found.rows;
        const std::u16string_view tag = trimmed(fields.front().view());
        if (fields.size() < 2 || !is_tag(tag)) {
            continue;
        }
        if (found.tagged++ == 0) {
            found.first_line = line;
            found.starts_text = found.rows == 1;
        }
        tags.add(tag);
        found.widest = std::max(found.widest, fields.size());
        for (std::size_t field = 0; field < fields.size() && cells < most_cells; ++field) {
            const CellKind kind = judge.judge(fields[field].view());
            weight += weights::of_cells[static_cast<std::size_t>(kind)];
            ++cells;
        }
    }
    found.kinds = tags.size();
    found.types = cells == 0 ? 0 : weight / static_cast<double>(cells);
    return found;
}

bool lines_end_alike(const FieldArray& lines) {
    char16_t sign = 0;
    std::size_t votes = 0;
    for (const Field& line : lines.fields) {
        const std::u16string_view text = trimmed(line.view());
        const char16_t last = text.empty() ? u'\0' : text.back();
        sign = votes == 0 ? last : sign;
        votes = last == sign ? votes + 1 : votes - 1;
    }
    if (sign == 0 || sign == u'.' || is_letter(sign) || ascii::is_digit(sign)) {
        return false;
    }
    const auto same =
        std::count_if(lines.fields.begin(), lines.fields.end(), [&](const Field& line) {
            const std::u16string_view text = trimmed(line.view());
            return !text.empty() && text.back() == sign;
        });
    return static_cast<std::size_t>(same) * 10 >= lines.fields.size() * 9;
}

} // namespace textio::advice
