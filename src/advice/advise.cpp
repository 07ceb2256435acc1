#include "textio/advice.hpp"

#include "advice/advisor.hpp"

namespace textio::advice {

Advice advise(const Field& text, std::size_t sample_lines, const Settings& settings) {
    return Advisor(text, sample_lines, settings).run();
}

Advice advise(const Field& text, std::size_t sample_lines) {
    const Settings settings;
    return advise(text, sample_lines, settings);
}

} // namespace textio::advice
