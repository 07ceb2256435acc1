#include "legacy_sets.hpp"

#include "converter.hpp"
#include "reading.hpp"

#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace detect_layout {

namespace {

constexpr std::array<std::u16string_view, 9> western{
    u"äüöß", u"éèàêçôâîùûïëœ", u"íóáñéúü", u"ãçáéíóêõâúà", u"àèòùìé",
    u"öäå",  u"øåæ",           u"ëéïèöü",  u"áðíéþóöúæý"};
constexpr std::array<std::u16string_view, 6> central{
    u"łęąóżśćńź", u"íáěéřýžčšůúťóňďľ", u"áíčžúýšéľťôňóďäĺŕ", u"áéöőíóüúű", u"ăîţşâ", u"čžšćđ"};
constexpr std::array<std::u16string_view, 1> turkish{u"ıüşçğöİâ"};
constexpr std::array<std::u16string_view, 3> baltic{u"ėšįžųūčąę", u"āīēšņļūģžčķ", u"äõüöšž"};
constexpr std::array<std::u16string_view, 4> cyrillic{
    u"оеаинтсрвлкмдпуяыьгзбчйхжшюцщэфъё", u"оанивтрелсікдумпязьбгчйхжцюшїєщфґ",
    u"аиеотнрсвлкдпмзъбгуячжщцйюфшхь", u"аоиенртсујвкпдлмзбгчшцхжњљћђфџ"};
constexpr std::array<std::u16string_view, 1> greek{u"αοιετσνηυρπκμλςίόγδάέήωχθφβύώξζψϊϋΐ"};
constexpr std::array<std::u16string_view, 1> hebrew{u"יוהלאמרתבשנדקפחעטכצגםזסןךףץ"};
constexpr std::array<std::u16string_view, 1> arabic{u"اليمونرتبةعدسفكحهجقأشصىضطخزثئءظغذإآؤ"};
constexpr std::array<std::u16string_view, 1> thai{u"านรกอเงมยลวดทสต่้ัีะปิบคหแจพชข์ุใไโผธถณูซศภ็ืฟ"};

// Added to the grade of a text: what is seldom found must read much better to be believed.
constexpr double less_common = -3;
constexpr double rare = -12;

/// A reading is sure if it is this much better than the next, in all, and this good on average.
constexpr double sure_distance = 8;
constexpr double sure_average = -6;

struct LegacySet {
    const char* name;
    Languages languages; ///< none: ideographs, kana or Korean syllables
    double prior;
    unsigned last_common = 0xFFFF; ///< behind these two bytes stand the rare ideographs
};

/// Of sets that decode a text alike, the first is named.
const std::array legacy_sets{
    LegacySet{"windows-1252", western, 0},
    LegacySet{"windows-1250", central, less_common},
    LegacySet{"ISO-8859-2", central, less_common},
    LegacySet{"windows-1254", turkish, less_common},
    LegacySet{"windows-1257", baltic, less_common},
    LegacySet{"windows-1251", cyrillic, less_common},
    LegacySet{"KOI8-U", cyrillic, less_common},
    LegacySet{"ISO-8859-5", cyrillic, less_common},
    LegacySet{"windows-1253", greek, less_common},
    LegacySet{"ISO-8859-7", greek, less_common},
    LegacySet{"windows-1255", hebrew, less_common},
    LegacySet{"windows-1256", arabic, less_common},
    LegacySet{"ISO-8859-6", arabic, less_common},
    LegacySet{"windows-874", thai, less_common},
    LegacySet{"Shift_JIS", {}, less_common, 0x9872},
    LegacySet{"EUC-JP", {}, less_common, 0xCFFF},
    LegacySet{"GB18030", {}, less_common, 0xD7FF},
    LegacySet{"Big5", {}, less_common, 0xC6FF},
    LegacySet{"EUC-KR", {}, less_common, 0xC8FF},
    LegacySet{"IBM850", western, rare},
    LegacySet{"IBM852", central, rare},
    LegacySet{"IBM866", cyrillic, rare},
    LegacySet{"macintosh", western, rare},
};

/// The text of `bytes` in a set, U+FFFD for what cannot be decoded; nothing if ICU lacks the set.
std::optional<std::u16string> decoded(std::string_view bytes, const char* name) {
    std::size_t undecodable = 0;
    const auto converter = open_converter(name, undecodable);
    if (converter.isNull() != 0) {
        return std::nullopt;
    }
    UErrorCode status = U_ZERO_ERROR;
    std::u16string text(2 * bytes.size() + 2, u'\0');
    const auto length =
        ucnv_toUChars(converter.getAlias(), text.data(), static_cast<std::int32_t>(text.size()),
                      bytes.data(), static_cast<std::int32_t>(bytes.size()), &status);
    text.resize(U_SUCCESS(status) != 0 ? static_cast<std::size_t>(length) : 0);
    return text;
}

/// How sure ICU is of each set of several bytes a character that it recognises, from 0 to 1.
std::map<std::string, double, std::less<>> recognised_by_icu(std::string_view bytes) {
    std::map<std::string, double, std::less<>> sets;
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUCharsetDetectorPointer detector(ucsdet_open(&status));
    ucsdet_setText(detector.getAlias(), bytes.data(), static_cast<std::int32_t>(bytes.size()),
                   &status);
    std::int32_t count = 0;
    const UCharsetMatch** matches = ucsdet_detectAll(detector.getAlias(), &count, &status);
    for (std::int32_t i = 0; U_SUCCESS(status) != 0 && i < count; ++i) {
        sets.emplace(ucsdet_getName(matches[i], &status),
                     ucsdet_getConfidence(matches[i], &status) / 100.0);
    }
    return sets;
}

std::size_t count_rare_ideographs(std::string_view bytes, unsigned last_common) {
    std::size_t count = 0;
    for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        if (first >= 0x80) {
            ++i;
            count += 0x100U * first + static_cast<unsigned char>(bytes[i]) > last_common ? 1 : 0;
        }
    }
    return count;
}

/// What bytes are in one set.
struct Candidate {
    const char* name;
    std::u16string text;
    Reading reading;
};

Reading read_in(const LegacySet& set, std::string_view bytes, std::u16string_view text,
                double confidence) {
    Reading reading =
        set.languages.empty()
            ? read_as_east_asian(text, count_rare_ideographs(bytes, set.last_common), confidence)
            : read_as_languages(text, set.languages);
    reading.total += set.prior;
    return reading;
}

/// The best first; the order of the table is kept among equals.
std::vector<Candidate> candidates_for(std::string_view bytes) {
    const auto confidences = recognised_by_icu(bytes);
    std::vector<Candidate> candidates;
    for (const LegacySet& set : legacy_sets) {
        if (auto text = decoded(bytes, set.name)) {
            const auto found = confidences.find(set.name);
            const double confidence = found != confidences.end() ? found->second : 0;
            const Reading reading = read_in(set, bytes, *text, confidence);
            candidates.push_back({set.name, *std::move(text), reading});
        }
    }
    std::stable_sort(
        candidates.begin(), candidates.end(),
        [](const Candidate& a, const Candidate& b) { return a.reading.total > b.reading.total; });
    return candidates;
}

} // namespace

CharacterSet most_likely_legacy_set(std::string_view bytes) {
    const auto candidates = candidates_for(bytes);
    const Candidate& best = candidates.front();
    const auto rival = std::find_if(candidates.begin(), candidates.end(),
                                    [&best](const Candidate& c) { return c.text != best.text; });
    const bool is_sure =
        rival == candidates.end() || (best.reading.average > sure_average &&
                                      best.reading.total - rival->reading.total > sure_distance);
    return {best.name, is_sure ? "" : rival->name};
}

} // namespace detect_layout
