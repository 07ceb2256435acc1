/// \file
/// The reads that a detection run makes, written down while it makes them, so that the run's time
/// can be set against theirs.
#pragma once

#include "textio/textio.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace bench {

struct DetectionOptions {
    textio::parser::options read;
    zentor::io::text::typedetection::TypeAnalyzerOptions type;
};

/// One read, not made yet.
struct OwnRead {
    std::function<std::shared_ptr<textio::GenericStrategy>()> make_strategy;
    bool kept; ///< the run holds the sample to its end
};

/// A detection run taken apart.
struct OwnReads {
    std::vector<OwnRead> reads;
    std::u16string delimiters; ///< the candidates that the lines showed
    std::size_t fields = 0;    ///< of all reads; a line without any counts as one
};

/// The reads of `pick_strategy` over the whole of `text`.
OwnReads own_reads(const textio::Field& text, const DetectionOptions& options);

/// The time of these reads, without valuation, in seconds. Samples that the run would hold on to
/// are held here too.
double seconds_of_reads(const textio::Field& text, const OwnReads& own);

} // namespace bench
