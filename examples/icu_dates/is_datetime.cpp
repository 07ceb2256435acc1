// The date facility: a text is a date if ICU reads all of it in one of the usual forms of a locale.
#include <textio/platform/is_datetime.hpp>

#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

namespace {

/// The usual forms of dates in one locale, with and without a time of day.
class LocaleDates {
public:
    explicit LocaleDates(const icu::Locale& locale) {
        using icu::DateFormat;
        for (const auto date :
             {DateFormat::kFull, DateFormat::kLong, DateFormat::kMedium, DateFormat::kShort}) {
            add(DateFormat::createDateInstance(date, locale));
            for (const auto time : {DateFormat::kMedium, DateFormat::kShort}) {
                add(DateFormat::createDateTimeInstance(date, time, locale));
            }
        }
    }

    [[nodiscard]] bool match(const icu::UnicodeString& text) const {
        return std::ranges::any_of(formats_, [&text](const auto& format) {
            icu::ParsePosition position;
            format->parse(text, position);
            return position.getErrorIndex() == -1 && position.getIndex() == text.length();
        });
    }

private:
    void add(icu::DateFormat* created) {
        std::unique_ptr<icu::DateFormat> format(created);
        if (format == nullptr) {
            return;
        }
        UErrorCode status = U_ZERO_ERROR;
        format->setLenient(false); // the 31st of February is no date
        format->setBooleanAttribute(UDAT_PARSE_ALLOW_NUMERIC, false, status);
        format->setBooleanAttribute(UDAT_PARSE_PARTIAL_LITERAL_MATCH, false, status);
        formats_.push_back(std::move(format));
    }

    std::vector<std::unique_ptr<icu::DateFormat>> formats_;
};

/// The dates of the locale `name`. Formats are dear to make and serve one thread at a time, so each
/// thread keeps those of the locale that it was last asked for.
const LocaleDates& dates_of(const std::u16string& name) {
    thread_local std::u16string known_name;
    thread_local std::unique_ptr<LocaleDates> known;
    if (known == nullptr || name != known_name) {
        const std::string id(name.begin(), name.end()); // names of locales are ASCII
        known = std::make_unique<LocaleDates>(icu::Locale(id.c_str()));
        known_name = name;
    }
    return *known;
}

} // namespace

namespace zentor::io::text::typeconversion {

/// `context` is the name of a locale, as in `de` or `zh_CN`.
bool is_datetime(const textio::Field& text, const std::u16string& context) {
    constexpr std::size_t longest_date = 100;
    if (text.size > longest_date) {
        return false;
    }
    const icu::UnicodeString units(false, text.data, static_cast<std::int32_t>(text.size));
    return dates_of(context).match(units);
}

} // namespace zentor::io::text::typeconversion
