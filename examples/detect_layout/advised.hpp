#pragma once

#include "bytes.hpp"
#include "settings.hpp"
#include "text_input.hpp"
#include "textio/advice.hpp"
#include "textio/strategy.hpp"

#include <memory>
#include <string>

namespace detect_layout {

/// An input, the readings of it that the library proposes, and what the rules say.
struct Advised {
    std::string file;
    std::unique_ptr<TextInput> input; ///< keeps the text that the proposals view
    textio::advice::Advice advice;

    /// The answer by rules; null where they could not be told what the user knows.
    std::shared_ptr<textio::GenericStrategy> by_rules;

    [[nodiscard]] const textio::advice::Proposal& best() const { return advice.proposals.front(); }
};

/// Asks for the best readings of the text that `bytes` hold. Throws `UserError` if they cannot be
/// read.
[[nodiscard]] Advised advise(std::string file, std::unique_ptr<ByteSource> bytes,
                             const Settings& settings);

/// Whether the rules were asked and cut the rows in another way than the best proposal.
[[nodiscard]] bool rules_differ(const Advised& advised);

/// The best proposal with another kind of layout or another delimiter than the first; null if
/// there is none.
[[nodiscard]] const textio::advice::Proposal* rival_of_best(const textio::advice::Advice& advice);

} // namespace detect_layout
