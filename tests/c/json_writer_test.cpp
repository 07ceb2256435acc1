#include "c/json_writer.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <string>
#include <utility>

namespace {

using textio::c::JsonWriter;

TEST(JsonWriter, SeparatesValues) {
    JsonWriter json;
    json.open_object();
    json.key("a");
    json.open_list();
    json.number(std::size_t{1});
    json.text("\"\\\n\x1F\xC3\xA4");
    json.open_object();
    json.close_object();
    json.open_list();
    json.close_list();
    json.close_list();
    json.key("b");
    json.boolean(true);
    json.key("");
    json.null();
    json.close_object();
    EXPECT_EQ(json.take(), "{\"a\":[1,\"\\\"\\\\\\u000a\\u001f\xC3\xA4\",{},[]],\"b\":true,\"\":null}");
}

std::string written(double value) {
    JsonWriter json;
    json.number(value);
    return json.take();
}

TEST(JsonWriter, GivesNumbersBackToTheLastBit) {
    using limits = std::numeric_limits<double>;
    EXPECT_EQ(written(0.1), "0.1");
    EXPECT_EQ(written(3), "3");
    EXPECT_EQ(written(0.1 + 0.2), "0.30000000000000004");
    for (const double value : {1.0 / 3, 2.0 / 3, limits::min(), limits::max(), limits::denorm_min(), -1e-300, 123456.789}) {
        EXPECT_EQ(std::strtod(written(value).c_str(), nullptr), value);
    }
    EXPECT_EQ(written(limits::infinity()) + written(-limits::infinity()) + written(limits::quiet_NaN()), "nullnullnull");
}

TEST(JsonWriter, WritesPointsWhateverTheLocale) {
    for (const auto& [number, expected] : {std::pair("12,5", "12.5"), std::pair("-1,5e-07", "-1.5e-07"), std::pair("12", "12"),
                                           std::pair("0\xD9\xAB"
                                                     "25",
                                                     "0.25"),
                                           std::pair("1e+300", "1e+300")}) {
        EXPECT_EQ(textio::c::with_point(number), expected);
    }
}

} // namespace
