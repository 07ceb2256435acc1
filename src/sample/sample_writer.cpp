#include "sample/sample_writer.hpp"

#include "address.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <new>
#include <span>

namespace textio::parser {

namespace {

/// So many values are added to an array at once: one by one, each waits for the array's new end.
constexpr std::size_t added_at_once = 64;

/// Has the memory fetched that is written soon if an array goes on being filled as it came to
/// `written`. Runs of empty fields, which cost little but the writing, are a tenth faster for it;
/// other fields are not. Nothing is read or changed, so it may as well be no memory.
void fetch_ahead(const Field& written) noexcept {
    constexpr std::uintptr_t ahead = 3072; // bytes; twice or half as many do as well
    // NOLINTNEXTLINE(*-reinterpret-cast, *-no-int-to-ptr): a hint may name what is no memory.
    __builtin_prefetch(reinterpret_cast<const void*>(address_of(&written) + ahead));
}

constexpr double least_growth = 1.5; ///< so that moving the values stays in proportion
constexpr double most_growth = 100;  ///< the most that a forecast from few lines is trusted with

/// The factor by which an array grows that is expected to grow by `expected` in the end. If that is
/// more than `trusted`, it is done in two equal steps: little has to be moved at the second, and if
/// the forecast was wrong, the first has not cost much.
double trusted_growth(double expected, double trusted) {
    const double step = expected > trusted ? std::sqrt(expected) : expected;
    return std::clamp(step, least_growth, trusted);
}

/// Makes room for `wanted` values. `wanted` is a forecast, so where there is no memory for as many,
/// half of it is tried, then a quarter, and so on, but never less than `least`.
template <class Value>
void make_room_for(std::vector<Value>& values, double wanted, double least) {
    const auto most = static_cast<double>(values.max_size());
    for (double room = std::min(wanted, most); room > least; room /= 2) {
        try {
            values.reserve(static_cast<std::size_t>(room));
            return;
        } catch (const std::bad_alloc&) {
            continue;
        }
    }
    if (least >= most) {
        throw std::bad_alloc();
    }
    values.reserve(static_cast<std::size_t>(least));
}

} // namespace

/// Makes room for the first few lines, which then tell how many fields are to be expected.
void SampleWriter::make_first_room() {
    constexpr std::size_t first_fields = 4 * spare_fields;
    const auto units = static_cast<std::size_t>(end_ - begin_);
    const bool is_short = units < first_fields; // and cannot hold more fields
    array_.fields.reserve(is_short ? units : first_fields);
    array_.line_ends.reserve(std::min(is_short ? units : first_fields / 2, rows_));
    roomy_fields_ = is_short ? SIZE_MAX : array_.fields.capacity() - spare_fields;
}

void SampleWriter::add_line_ends(std::size_t count, const char16_t* next) {
    std::vector<std::size_t>& line_ends = array_.line_ends;
    if (line_ends.capacity() - line_ends.size() < count) {
        make_room_for_lines(next, count);
    }
    while (count > 0) {
        const std::size_t added = std::min(count, added_at_once);
        line_ends.insert(line_ends.end(), added, array_.fields.size());
        count -= added;
    }
}

void SampleWriter::add_empty_fields(const char16_t* begin, const char16_t* end) {
    while (begin != end) {
        const std::size_t added = std::min(static_cast<std::size_t>(end - begin), added_at_once);
        Field* const first = &*array_.fields.insert(array_.fields.end(), added, Field(begin, 0));
        for (Field& field : std::span(first, added)) {
            field.data = begin++;
            fetch_ahead(field);
        }
    }
}

void SampleWriter::give_record_back() {
    array_.fields.resize(array_.line_ends.empty() ? 0 : array_.line_ends.back());
}

const char16_t* SampleWriter::make_room_within_record(const char16_t* at) {
    if (array_.fields.capacity() - array_.fields.size() < static_cast<std::size_t>(long_record)) {
        make_room(at);
    }
    return checkpoint(at);
}

/// How many times as much as the text up to `at` the whole text gives, if it goes on as it began.
double SampleWriter::expected_growth(const char16_t* at) const noexcept {
    constexpr double margin = 1.25; // lines are not all alike
    const auto share = [](std::size_t whole, std::size_t part) {
        return static_cast<double>(whole) / static_cast<double>(part);
    };
    return margin * std::min(share(static_cast<std::size_t>(end_ - begin_),
                                   static_cast<std::size_t>(at - begin_)),
                             share(rows_, array_.line_ends.size() + 1));
}

/// Makes room for as many fields and lines as are to be expected behind `at`. The first lines of a
/// text can mislead, so a forecast from them is trusted only a little. A later one is trusted as
/// long as it asks for little memory: pages that are never written to cost nothing.
void SampleWriter::make_room(const char16_t* at) {
    constexpr std::size_t telling_lines = 32;
    constexpr std::size_t little_room = (64U << 20U) / sizeof(Field);
    const auto fields = static_cast<double>(array_.fields.size());
    const auto lines = static_cast<double>(array_.line_ends.size());
    const bool are_telling = array_.line_ends.size() >= telling_lines;
    const double believed = are_telling ? static_cast<double>(little_room) / fields : 0;
    const double growth = trusted_growth(expected_growth(at), std::max(believed, most_growth));
    make_room_for(array_.fields, fields * growth + spare_fields,
                  fields * least_growth + spare_fields);
    roomy_fields_ = array_.fields.capacity() - spare_fields;
    make_room_for(array_.line_ends, lines * growth + 1, lines * least_growth + 1);
}

/// Makes room for at least `count` more lines, and for as many as are to be expected. This is for
/// texts with so many lines up to `at` that the room made along with that for fields is not enough.
void SampleWriter::make_room_for_lines(const char16_t* at, std::size_t count) {
    const auto held = static_cast<double>(array_.line_ends.size());
    make_room_for(array_.line_ends, held * trusted_growth(expected_growth(at), most_growth),
                  std::max(held * least_growth, held + static_cast<double>(count)));
}

} // namespace textio::parser
