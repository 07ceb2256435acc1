#include "growth_cases.hpp"

#include "textio/platform/delimiter_set.hpp"
#include "textio/platform/is_datetime.hpp"
#include "textio/textio.hpp"
#include "texts.hpp"

#include <algorithm>
#include <memory>
#include <numeric>

namespace bench {

namespace {

using textio::Field;
using zentor::io::text::typedetection::TypeAnalyzer;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

/// A field of which `action` is made again and again, each time from the text as it was.
template <class Action>
GrowthCase over_field(const std::string& name, char16_t (*unit_at)(std::size_t), Action action) {
    return {name, [unit_at, action](std::size_t units) {
                const auto text = std::make_shared<std::u16string>();
                for (std::size_t i = 0; i < units; ++i) {
                    *text += unit_at(i);
                }
                return [text, action] {
                    textio::MutableField field{Field(*text)};
                    action(field);
                };
            }};
}

/// Something that is made of a list of counts.
template <class Action>
GrowthCase over_counts(const std::string& name, Action action) {
    return {name, [action](std::size_t count) {
                RandomSource random;
                auto counts = std::make_shared<std::vector<std::size_t>>(count);
                std::ranges::generate(*counts, [&random] { return random.between(0, 50); });
                return [counts, action] { action(*counts); };
            }};
}

void add_field_cases(std::vector<GrowthCase>& cases) {
    const auto classify = [](textio::MutableField& field) {
        TypeAnalyzerOptions options{.thousands_separator = u'\''};
        static_cast<void>(TypeAnalyzer<false>(options).classify(field));
    };
    const struct {
        const char* name;
        char16_t (*unit_at)(std::size_t);
    } fields[] = {
        {"digits", [](std::size_t) { return u'7'; }},
        {"thousands", [](std::size_t i) { return i % 4 == 1 ? u'\'' : u'1'; }},
        {"letters", [](std::size_t i) { return static_cast<char16_t>(u'a' + i % 26); }},
        {"quotes", [](std::size_t) { return u'"'; }},
        {"blanks", [](std::size_t) { return u' '; }},
        {"marks of dates", [](std::size_t i) { return u"1-/: "[i % 5]; }},
    };
    for (const auto& field : fields) {
        const std::string of = std::string(" of ") + field.name;
        cases.push_back(over_field("classify" + of, field.unit_at, classify));
        cases.push_back(
            over_field("is_datetime" + of, field.unit_at, [](const textio::MutableField& text) {
                static_cast<void>(zentor::io::text::typeconversion::is_datetime(text, {}));
            }));
        cases.push_back(over_field("add_delims_from_line" + of, field.unit_at,
                                   [](const textio::MutableField& text) {
                                       std::u16string delimiters;
                                       textio::detection::add_delims_from_line(text, delimiters);
                                   }));
    }
}

void add_count_cases(std::vector<GrowthCase>& cases) {
    using namespace textio::detection;
    using Counts = std::vector<std::size_t>;
    cases.push_back(over_counts("get_modified_median", [](const Counts& counts) {
        static_cast<void>(get_modified_median(counts, get_h_min(counts)));
    }));
    cases.push_back(over_counts("get_header_lines", [](const Counts& counts) {
        const std::size_t median = get_modified_median(counts, 0);
        static_cast<void>(get_header_lines(absolute_differences(counts, median), 0, false));
    }));
    cases.push_back(over_counts("mad", [](const Counts& counts) {
        int median = 0;
        static_cast<void>(mad(counts, median));
    }));
    cases.push_back(over_counts("filter_vector", [](const Counts& counts) {
        static_cast<void>(
            filter_vector(std::vector<double>(counts.begin(), counts.end()), 0.25, 0.5, 0.25));
    }));
    cases.push_back(
        over_counts("rule chain, eight times fewer candidates", [](const Counts& counts) {
            std::vector<textio::StrategyValuation> valuations(counts.size() / 8);
            for (std::size_t i = 0; i < valuations.size(); ++i) {
                valuations[i].num_variables = 3;
                valuations[i].header_lines = 1;
                valuations[i].prior_rank = static_cast<double>(counts[i]);
            }
            static_cast<void>(ClassicRules(true, 0, true).pick(valuations));
        }));
}

/// Hands out one unit after the other, up to so many.
class Letters : public zentor::io::text::stream::TextSource {
public:
    explicit Letters(std::size_t units) : left_(units) {}
    std::size_t read(char16_t* begin, char16_t* end) override {
        const std::size_t count = std::min(left_, static_cast<std::size_t>(end - begin));
        std::fill_n(begin, count, u'\n');
        left_ -= count;
        return count;
    }

private:
    std::size_t left_;
};

void add_other_cases(std::vector<GrowthCase>& cases) {
    cases.push_back({"get_fixed_stream, stepped through", [](std::size_t units) {
                         return [units] {
                             constexpr std::size_t step = 1 << 18;
                             Letters letters(5'000'000 + 128 * units);
                             const zentor::io::text::stream::TextStream stream(letters);
                             while (textio::get_fixed_stream(stream, {u"\n"}).size > step) {
                                 stream.position += step;
                             }
                         };
                     }});
    cases.push_back(
        {"get_or_create_delim, strings", [](std::size_t count) {
             auto strings = std::make_shared<std::vector<std::u16string>>();
             for (std::size_t i = 0; i < count; ++i) {
                 strings->push_back({static_cast<char16_t>(i), static_cast<char16_t>(i >> 8)});
             }
             return [strings] { static_cast<void>(textio::get_or_create_delim(*strings)); };
         }});
}

} // namespace

std::vector<GrowthCase> operation_cases() {
    std::vector<GrowthCase> cases;
    add_field_cases(cases);
    add_count_cases(cases);
    add_other_cases(cases);
    return cases;
}

} // namespace bench
