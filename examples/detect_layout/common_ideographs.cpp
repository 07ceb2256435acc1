#include "common_ideographs.hpp"

#include <string_view>

namespace detect_layout {

namespace {

constexpr std::u16string_view japanese =
    u"一二三四五六七八九十百千万円年月日時分秒名前番号住所電話会社氏男女性別歳"
    u"人生学校大中小上下内外左右東西南北京都道府県市区町村国本商品価格金額数量"
    u"単位合計売在庫店部課天気温度長出同事政自行見議後民連間対者党地業相方定今"
    u"回新場員入選立開手米力問高代明実関決子動全目表戦経通最言現理調体化田当約"
    u"主題首意法不来作要用制治務強公野協取統以機平総加思家受領多進正安設保改記"
    u"院初午指権心界支第産結派点教報済書活原先共得解交資予向際";

// Those that differ from the Japanese ones, or are rarer there.
constexpr std::u16string_view simplified_chinese =
    u"的是我有这个们中来时要就出会可也你对能而那于着之过发道然种成么去如没面起"
    u"看还好其些样她但因只从想军无它与把此已工使情知又将两由很重并物应头文美被"
    u"利什等己身果西月特信老给世次门任常海儿声提及比水真论处走义各几口认条系题"
    u"活更打变神何安少才反太再感建做接必件管期直";
constexpr std::u16string_view traditional_chinese =
    u"這個們來時會對過發後還進從實與長機見無現關點業將兩間問當電號碼價額總計學"
    u"國東員開體動種經達運數區縣廣場產";

bool has(std::u16string_view text, char16_t unit) {
    return text.find(unit) != std::u16string_view::npos;
}

} // namespace

bool is_common_ideograph(char16_t unit) noexcept {
    return has(japanese, unit) || has(simplified_chinese, unit) || has(traditional_chinese, unit);
}

} // namespace detect_layout
