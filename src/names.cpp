#include "textio/names.hpp"

#include <array>
#include <cstddef>
#include <utility>

namespace textio {

using enums::StrategyMode;
using reading::End;
using reading::Fault;
using reading::Policy;
using zentor::io::text::typedetection::FieldClass;

namespace {

template <class Value, std::size_t count>
using Names = std::array<std::pair<Value, std::string_view>, count>;

constexpr Names<StrategyMode, 4> kinds{{
    {StrategyMode::delimited, "delimited"},
    {StrategyMode::space_aligned, "space_aligned"},
    {StrategyMode::fixed_width, "fixed_width"},
    {StrategyMode::line_reader, "line"},
}};

constexpr Names<FieldClass, 10> classes{{
    {FieldClass::unknown, "unknown"},
    {FieldClass::number, "number"},
    {FieldClass::text, "text"},
    {FieldClass::datetime, "datetime"},
    {FieldClass::date, "date"},
    {FieldClass::duration, "duration"},
    {FieldClass::hex_number, "hex_number"},
    {FieldClass::binary_number, "binary_number"},
    {FieldClass::short_duration, "short_duration"},
    {FieldClass::delimiter_like, "delimiter_like"},
}};

constexpr Names<Fault, 5> faults{{
    {Fault::none, "none"},
    {Fault::too_few_fields, "too_few_fields"},
    {Fault::too_many_fields, "too_many_fields"},
    {Fault::open_quote, "open_quote"},
    {Fault::too_long, "too_long"},
}};

constexpr Names<End, 5> ends{{
    {End::not_yet, "not_yet"},
    {End::of_text, "of_text"},
    {End::at_mark, "at_mark"},
    {End::stopped, "stopped"},
    {End::too_long, "too_long"},
}};

constexpr Names<std::string_view, 9> doubts{{
    {"consistency", "rows of other widths"},
    {"coverage", "text around the table"},
    {"alignment", "cells out of line"},
    {"types", "cells that prove little"},
    {"columns", "few columns"},
    {"rows", "few rows"},
    {"first", "the first line does not fit"},
    {"quotes", "the quotes are ignored"},
    {"context", "the text looks like something else"},
}};

constexpr Names<Policy, 4> policies{{
    {Policy::keep, "keep"},
    {Policy::pad, "pad"},
    {Policy::skip, "skip"},
    {Policy::stop, "stop"},
}};

/// The name of `value`; the first one for a value that has none.
template <class Value, std::size_t count>
std::string_view name_in(const Names<Value, count>& names, Value value) noexcept {
    for (const auto& [named, name] : names) {
        if (named == value) {
            return name;
        }
    }
    return names.front().second;
}

template <class Value, std::size_t count>
std::optional<Value> value_in(const Names<Value, count>& names, std::string_view wanted) noexcept {
    for (const auto& [value, name] : names) {
        if (name == wanted) {
            return value;
        }
    }
    return std::nullopt;
}

/// How often what makes the columns is there without a table.
constexpr std::string_view doubt_about_kind(StrategyMode kind) noexcept {
    switch (kind) {
    case StrategyMode::fixed_width:
        return "positions may be chance";
    case StrategyMode::line_reader:
        return "every text has lines";
    default:
        return "ordinary texts have such separators too";
    }
}

} // namespace

std::string_view name_of(StrategyMode kind) noexcept {
    return name_in(kinds, kind);
}

std::string_view name_of(FieldClass type) noexcept {
    return name_in(classes, type);
}

std::string_view name_of(Fault fault) noexcept {
    return name_in(faults, fault);
}

std::string_view name_of(End end) noexcept {
    return name_in(ends, end);
}

std::optional<StrategyMode> kind_named(std::string_view name) noexcept {
    return value_in(kinds, name);
}

std::optional<Policy> policy_named(std::string_view name) noexcept {
    return value_in(policies, name);
}

std::string_view doubt_about(std::string_view term, StrategyMode kind) noexcept {
    if (term == "prior") {
        return doubt_about_kind(kind);
    }
    for (const auto& [name, doubt] : doubts) {
        if (name == term) {
            return doubt;
        }
    }
    return term;
}

} // namespace textio
