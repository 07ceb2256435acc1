#include "c/hints.hpp"

#include "c/status.hpp"
#include "textio/names.hpp"
#include "textio/utf8.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <utility>

namespace {

using textio::c::Failure;
using textio::c::guarded;
using textio::c::Method;

/// A value was refused, for this reason.
struct Refusal {
    std::string_view reason;
};

std::u16string text_of(std::string_view value) {
    textio::utf8::Decoded decoded = textio::utf8::decode(value);
    if (decoded.replaced > 0) {
        throw Refusal{"is not UTF-8"};
    }
    return std::move(decoded.text);
}

std::size_t number_of(std::string_view value) {
    std::size_t number = 0;
    for (const char digit : value) {
        const auto units = static_cast<std::size_t>(digit - '0');
        if (digit < '0' || digit > '9') {
            throw Refusal{"is not a number from 0 up"};
        }
        if (number > (SIZE_MAX - units) / 10) {
            throw Refusal{"is too large"};
        }
        number = 10 * number + units;
    }
    if (value.empty()) {
        throw Refusal{"is not a number from 0 up"};
    }
    return number;
}

/// The one unit of `value`; 0 if it is empty.
char16_t unit_or_none(std::string_view value) {
    const std::u16string units = text_of(value);
    if (units.size() > 1) {
        throw Refusal{"is more than one UTF-16 code unit"};
    }
    return units.empty() ? u'\0' : units.front();
}

char16_t unit_of(std::string_view value) {
    const char16_t unit = unit_or_none(value);
    if (unit == 0) {
        throw Refusal{"is not a character"};
    }
    return unit;
}

std::u16string filled_text_of(std::string_view value) {
    if (value.empty()) {
        throw Refusal{"is empty"};
    }
    return text_of(value);
}

Method method_of(std::string_view value) {
    if (value != "advice" && value != "rules") {
        throw Refusal{"is neither advice nor rules"};
    }
    return value == "rules" ? Method::rules : Method::advice;
}

textio::enums::StrategyMode kind_of(std::string_view value) {
    const auto kind = textio::kind_named(value);
    if (!kind) {
        throw Refusal{"is none of delimited, space_aligned, fixed_width, line"};
    }
    return *kind;
}

std::size_t line_or_none(std::string_view value) {
    return value == "none" ? textio::advice::no_line : number_of(value);
}

std::vector<std::size_t> numbers_of(std::string_view value) {
    std::vector<std::size_t> numbers;
    bool has_more = !value.empty();
    while (has_more) {
        const std::size_t comma = std::min(value.find(','), value.size());
        numbers.push_back(number_of(value.substr(0, comma)));
        has_more = comma < value.size();
        value.remove_prefix(has_more ? comma + 1 : comma);
    }
    return numbers;
}

std::vector<std::u16string> only_text(std::string_view value) {
    return {text_of(value)};
}

template <auto member, auto value_of>
void set(textio_hints& hints, std::string_view value) {
    hints.*member = value_of(value);
}

template <auto member>
void take_back(textio_hints& hints) {
    (hints.*member).reset();
}

/// Adds to a list, or begins it.
template <auto member, auto value_of>
void add(textio_hints& hints, std::string_view value) {
    auto list = hints.*member;
    if (!list) {
        list.emplace();
    }
    list->push_back(value_of(value));
    hints.*member = std::move(list);
}

struct Hint {
    const char* name;
    void (*set)(textio_hints&, std::string_view);
    void (*take_back)(textio_hints&);
    void (*add)(textio_hints&, std::string_view); ///< null for what is no list
};

template <auto member, auto value_of>
constexpr Hint hint(const char* name) {
    return {name, set<member, value_of>, take_back<member>, nullptr};
}

template <auto member, auto value_of, auto one_value_of>
constexpr Hint list_hint(const char* name) {
    return {name, set<member, value_of>, take_back<member>, add<member, one_value_of>};
}

constexpr std::array all_hints{
    hint<&textio_hints::method, method_of>("method"),
    hint<&textio_hints::rows, number_of>("rows"),
    hint<&textio_hints::kind, kind_of>("kind"),
    hint<&textio_hints::delimiter, filled_text_of>("delimiter"),
    list_hint<&textio_hints::widths, numbers_of, number_of>("widths"),
    hint<&textio_hints::quote, unit_or_none>("quote"),
    hint<&textio_hints::comment, text_of>("comment"),
    hint<&textio_hints::comment_end, text_of>("comment_end"),
    hint<&textio_hints::decimal, unit_of>("decimal"),
    hint<&textio_hints::thousands, unit_or_none>("thousands"),
    hint<&textio_hints::whitespace, text_of>("whitespace"),
    list_hint<&textio_hints::missing, only_text, text_of>("missing"),
    hint<&textio_hints::first_data_line, number_of>("first_data_line"),
    hint<&textio_hints::names_line, line_or_none>("names_line"),
};

const Hint& hint_named(std::string_view name) {
    for (const Hint& hint : all_hints) {
        if (hint.name == name) {
            return hint;
        }
    }
    throw Failure{TEXTIO_UNKNOWN_NAME, "there is no hint '" + std::string(name) + "'"};
}

[[noreturn]] void refuse(const char* name, std::string_view value, std::string_view reason) {
    throw Failure{TEXTIO_BAD_VALUE,
                  std::string(name) + ": '" + std::string(value) + "' " + std::string(reason)};
}

void require_both(const textio_hints* hints, const char* name) {
    textio::c::require(hints != nullptr, "there are no hints to change");
    textio::c::require(name != nullptr, "which hint? The name is null");
}

void set_hint(textio_hints& hints, const char* name, std::string_view value) {
    const Hint& hint = hint_named(name);
    try {
        hint.set(hints, value);
    } catch (const Refusal& refusal) {
        refuse(name, value, refusal.reason);
    }
}

void add_to_hint(textio_hints& hints, const char* name, std::string_view value) {
    const Hint& hint = hint_named(name);
    if (hint.add == nullptr) {
        refuse(name, value, "cannot be added, as it is no list");
    }
    try {
        hint.add(hints, value);
    } catch (const Refusal& refusal) {
        refuse(name, value, refusal.reason);
    }
}

} // namespace

textio_hints* textio_hints_new() {
    textio_hints* hints = nullptr;
    textio::c::guarded([&] { hints = std::make_unique<textio_hints>().release(); });
    return hints;
}

void textio_hints_free(textio_hints* hints) {
    std::unique_ptr<textio_hints>(hints).reset();
}

const char* textio_hint_name(size_t index) {
    return index < all_hints.size() ? all_hints.at(index).name : nullptr;
}

textio_status textio_hints_set(textio_hints* hints, const char* name, const char* value) {
    return guarded([&] {
        require_both(hints, name);
        if (value == nullptr) {
            hint_named(name).take_back(*hints);
        } else {
            set_hint(*hints, name, value);
        }
    });
}

textio_status textio_hints_set_sized(textio_hints* hints, const char* name, const char* value,
                                     size_t size) {
    return guarded([&] {
        require_both(hints, name);
        if (value == nullptr) {
            hint_named(name).take_back(*hints);
        } else {
            set_hint(*hints, name, {value, size});
        }
    });
}

textio_status textio_hints_add(textio_hints* hints, const char* name, const char* value) {
    return guarded([&] {
        require_both(hints, name);
        textio::c::require(value != nullptr, "which value? It is null");
        add_to_hint(*hints, name, value);
    });
}
