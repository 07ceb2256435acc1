/// \file
/// Texts that arrive from a source, and layouts to read them under.
#pragma once

#include "textio/textio.hpp"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace test {

/// Thrown by a source that fails.
struct Failure {};

/// Delivers a text, and fails before each read whose number can be divided by `failing`.
class Delivered : public zentor::io::text::stream::TextSource {
public:
    explicit Delivered(std::u16string_view text, std::size_t failing = SIZE_MAX) : rest_(text), failing_(failing) {}

    std::size_t read(char16_t* begin, char16_t* end) override {
        if (++reads_ % failing_ == 0) {
            std::fill(begin, end, u'!');
            throw Failure();
        }
        const std::size_t count = std::min(rest_.size(), static_cast<std::size_t>(end - begin));
        std::copy_n(rest_.begin(), count, begin);
        rest_.remove_prefix(count);
        return count;
    }

private:
    std::u16string_view rest_;
    std::size_t failing_;
    std::size_t reads_ = 0;
};

/// Makes one of the layouts below.
using MakeLayout = std::shared_ptr<textio::GenericStrategy> (*)(const textio::parser::options&);

inline std::shared_ptr<textio::GenericStrategy> by_comma(const textio::parser::options& options) {
    return std::make_shared<textio::DelimitedStrategy>(options, zentor::io::text::typedetection::TypeAnalyzerOptions(), u',');
}
inline std::shared_ptr<textio::GenericStrategy> by_two_units(const textio::parser::options& options) {
    return std::make_shared<textio::DelimitedStrategy>(options, zentor::io::text::typedetection::TypeAnalyzerOptions(),
                                                       std::vector<std::u16string>{u"::", u";"});
}
inline std::shared_ptr<textio::GenericStrategy> aligned(const textio::parser::options& options) {
    return std::make_shared<textio::SpaceAlignedStrategy>(options, zentor::io::text::typedetection::TypeAnalyzerOptions());
}
inline std::shared_ptr<textio::GenericStrategy> by_widths(const textio::parser::options& options) {
    return std::make_shared<textio::FixedWidthStrategy>(options, zentor::io::text::typedetection::TypeAnalyzerOptions(),
                                                        std::vector<std::size_t>{3, 1, 4});
}
inline std::shared_ptr<textio::GenericStrategy> line_by_line(const textio::parser::options& options) {
    return std::make_shared<textio::LineReaderStrategy>(options, zentor::io::text::typedetection::TypeAnalyzerOptions());
}

} // namespace test
