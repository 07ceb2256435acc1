#include "encodings.hpp"

#include <algorithm>
#include <array>

namespace import_statements {

namespace {

constexpr std::array<Encoding, 30> encodings{{
    {"UTF-8", "utf-8", "UTF-8", "UTF8", "65001"},
    {"US-ASCII", "ascii", "UTF-8", "UTF8", "65001"},
    {"UTF-16LE", "utf-16-le", "UTF-16LE", nullptr, "1200"},
    {"UTF-16BE", "utf-16-be", "UTF-16BE", nullptr, "1201"},
    {"UTF-32LE", "utf-32-le", "UTF-32LE", nullptr, "12000"},
    {"UTF-32BE", "utf-32-be", "UTF-32BE", nullptr, "12001"},
    {"ISO-8859-1", "iso-8859-1", "ISO-8859-1", "LATIN1", "28591"},
    {"windows-1252", "cp1252", "windows-1252", "WIN1252", "1252"},
    {"windows-1250", "cp1250", "windows-1250", "WIN1250", "1250"},
    {"ISO-8859-2", "iso-8859-2", "ISO-8859-2", "LATIN2", "28592"},
    {"ISO-8859-15", "iso-8859-15", "ISO-8859-15", "LATIN9", "28605"},
    {"windows-1254", "cp1254", "windows-1254", "WIN1254", "1254"},
    {"windows-1257", "cp1257", "windows-1257", "WIN1257", "1257"},
    {"windows-1251", "cp1251", "windows-1251", "WIN1251", "1251"},
    {"KOI8-U", "koi8-u", "KOI8-U", "KOI8U", "21866"},
    {"KOI8-R", "koi8-r", "KOI8-R", "KOI8R", "20866"},
    {"ISO-8859-5", "iso-8859-5", "ISO-8859-5", "ISO_8859_5", "28595"},
    {"windows-1253", "cp1253", "windows-1253", "WIN1253", "1253"},
    {"ISO-8859-7", "iso-8859-7", "ISO-8859-7", "ISO_8859_7", "28597"},
    {"windows-1255", "cp1255", "windows-1255", "WIN1255", "1255"},
    {"windows-1256", "cp1256", "windows-1256", "WIN1256", "1256"},
    {"windows-874", "cp874", "windows-874", "WIN874", "874"},
    {"Shift_JIS", "shift_jis", "Shift_JIS", "SJIS", "932"},
    {"EUC-JP", "euc-jp", "EUC-JP", "EUC_JP", "51932"},
    {"GB18030", "gb18030", "GB18030", "GB18030", "54936"},
    {"Big5", "big5", "Big5", "BIG5", "950"},
    {"EUC-KR", "euc-kr", "EUC-KR", "EUC_KR", "51949"},
    {"IBM850", "cp850", "IBM850", nullptr, "850"},
    {"IBM852", "cp852", "IBM852", nullptr, "852"},
    {"IBM866", "cp866", "IBM866", "WIN866", "866"},
}};

} // namespace

Encoding encoding_of(const std::string& icu_name) {
    const auto* const found =
        std::find_if(encodings.begin(), encodings.end(),
                     [&](const Encoding& encoding) { return icu_name == encoding.icu; });
    return found != encodings.end()
               ? *found
               : Encoding{icu_name.c_str(), icu_name.c_str(), icu_name.c_str(), nullptr, nullptr};
}

bool is_utf8(std::string_view icu_name) {
    return icu_name == "UTF-8" || icu_name == "US-ASCII";
}

} // namespace import_statements
