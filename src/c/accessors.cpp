#include "c/layout.hpp"

#include <cstddef>
#include <memory>
#include <string>

namespace {

using textio::c::OptionalText;
using textio::c::ToldColumn;
using textio::c::ToldProposal;
using textio::c::ToldTerm;

const ToldProposal* proposal_of(const textio_layout* layout, std::size_t proposal) noexcept {
    return layout != nullptr && proposal < layout->proposals.size() ? &layout->proposals[proposal]
                                                                    : nullptr;
}

const ToldColumn* column_of(const textio_layout* layout, std::size_t proposal,
                            std::size_t column) noexcept {
    const ToldProposal* found = proposal_of(layout, proposal);
    return found != nullptr && column < found->columns.size() ? &found->columns[column] : nullptr;
}

const ToldTerm* term_of(const textio_layout* layout, std::size_t proposal,
                        std::size_t term) noexcept {
    const ToldProposal* found = proposal_of(layout, proposal);
    return found != nullptr && term < found->terms.size() ? &found->terms[term] : nullptr;
}

void set_if_wanted(std::size_t* count, std::size_t value) noexcept {
    if (count != nullptr) {
        *count = value;
    }
}

const char* given(const std::string* text, std::size_t* length) noexcept {
    set_if_wanted(length, text == nullptr ? 0 : text->size());
    return text == nullptr ? nullptr : text->c_str();
}

/// The text `member` of a proposal, if there are both.
const char* text_of(const textio_layout* layout, std::size_t proposal,
                    OptionalText ToldProposal::*member, std::size_t* length) noexcept {
    const ToldProposal* found = proposal_of(layout, proposal);
    const bool has_text = found != nullptr && (found->*member).has_value();
    return given(has_text ? &*(found->*member) : nullptr, length);
}

/// The number `member` of a proposal; 0 for one that is not there.
std::size_t number_of(const textio_layout* layout, std::size_t proposal,
                      std::size_t textio::advice::Proposal::*member) noexcept {
    const ToldProposal* found = proposal_of(layout, proposal);
    return found == nullptr ? 0 : found->reading.*member;
}

} // namespace

void textio_layout_free(textio_layout* layout) {
    std::unique_ptr<textio_layout>(layout).reset();
}

const char* textio_layout_json(const textio_layout* layout, size_t* length) {
    return given(layout == nullptr ? nullptr : &layout->json, length);
}

size_t textio_layout_proposals(const textio_layout* layout) {
    return layout == nullptr ? 0 : layout->proposals.size();
}

double textio_layout_confidence(const textio_layout* layout) {
    return layout == nullptr ? 0 : layout->confidence.value_or(0);
}

int textio_layout_is_table(const textio_layout* layout) {
    return layout != nullptr && layout->is_table ? 1 : 0;
}

size_t textio_layout_data_rows(const textio_layout* layout) {
    return layout == nullptr ? 0 : layout->data_rows;
}

const char* textio_layout_kind(const textio_layout* layout, size_t proposal) {
    const ToldProposal* found = proposal_of(layout, proposal);
    return found == nullptr ? nullptr : found->kind.data();
}

const char* textio_layout_delimiter(const textio_layout* layout, size_t proposal, size_t* length) {
    return text_of(layout, proposal, &ToldProposal::delimiter, length);
}

const size_t* textio_layout_widths(const textio_layout* layout, size_t proposal, size_t* count) {
    const ToldProposal* found = proposal_of(layout, proposal);
    const bool has_widths = found != nullptr && !found->widths.empty();
    set_if_wanted(count, has_widths ? found->widths.size() : 0);
    return has_widths ? found->widths.data() : nullptr;
}

const char* textio_layout_quote(const textio_layout* layout, size_t proposal, size_t* length) {
    return text_of(layout, proposal, &ToldProposal::quote, length);
}

const char* textio_layout_comment(const textio_layout* layout, size_t proposal, size_t* length) {
    return text_of(layout, proposal, &ToldProposal::comment, length);
}

const char* textio_layout_comment_end(const textio_layout* layout, size_t proposal,
                                      size_t* length) {
    return text_of(layout, proposal, &ToldProposal::comment_end, length);
}

const char* textio_layout_decimal(const textio_layout* layout, size_t proposal, size_t* length) {
    return text_of(layout, proposal, &ToldProposal::decimal, length);
}

const char* textio_layout_thousands(const textio_layout* layout, size_t proposal, size_t* length) {
    return text_of(layout, proposal, &ToldProposal::thousands, length);
}

size_t textio_layout_names_line(const textio_layout* layout, size_t proposal) {
    return number_of(layout, proposal, &textio::advice::Proposal::names_line);
}

size_t textio_layout_first_data_line(const textio_layout* layout, size_t proposal) {
    return number_of(layout, proposal, &textio::advice::Proposal::first_data_line);
}

size_t textio_layout_header_lines(const textio_layout* layout, size_t proposal) {
    const ToldProposal* found = proposal_of(layout, proposal);
    return found == nullptr ? 0 : found->reading.strategy->header_lines();
}

size_t textio_layout_columns(const textio_layout* layout, size_t proposal) {
    const ToldProposal* found = proposal_of(layout, proposal);
    return found == nullptr ? 0 : found->columns.size();
}

const char* textio_layout_column_name(const textio_layout* layout, size_t proposal, size_t column,
                                      size_t* length) {
    const ToldColumn* found = column_of(layout, proposal, column);
    return given(found == nullptr ? nullptr : &found->name, length);
}

const char* textio_layout_column_class(const textio_layout* layout, size_t proposal,
                                       size_t column) {
    const ToldColumn* found = column_of(layout, proposal, column);
    return found == nullptr ? nullptr : found->type.data();
}

size_t textio_layout_column_values(const textio_layout* layout, size_t proposal, size_t column) {
    const ToldColumn* found = column_of(layout, proposal, column);
    return found == nullptr ? 0 : found->values;
}

size_t textio_layout_column_missing(const textio_layout* layout, size_t proposal, size_t column) {
    const ToldColumn* found = column_of(layout, proposal, column);
    return found == nullptr ? 0 : found->missing;
}

size_t textio_layout_rows(const textio_layout* layout, size_t proposal) {
    return number_of(layout, proposal, &textio::advice::Proposal::rows);
}

size_t textio_layout_regular_rows(const textio_layout* layout, size_t proposal) {
    return number_of(layout, proposal, &textio::advice::Proposal::regular_rows);
}

double textio_layout_score(const textio_layout* layout, size_t proposal) {
    const ToldProposal* found = proposal_of(layout, proposal);
    return found == nullptr ? 0 : found->reading.score;
}

size_t textio_layout_terms(const textio_layout* layout, size_t proposal) {
    const ToldProposal* found = proposal_of(layout, proposal);
    return found == nullptr ? 0 : found->terms.size();
}

const char* textio_layout_term_name(const textio_layout* layout, size_t proposal, size_t term) {
    const ToldTerm* found = term_of(layout, proposal, term);
    return found == nullptr ? nullptr : found->name.c_str();
}

double textio_layout_term_value(const textio_layout* layout, size_t proposal, size_t term) {
    const ToldTerm* found = term_of(layout, proposal, term);
    return found == nullptr ? 0 : found->value;
}

const char* textio_layout_why(const textio_layout* layout, size_t proposal) {
    const ToldProposal* found = proposal_of(layout, proposal);
    return found == nullptr ? nullptr : found->why.c_str();
}
