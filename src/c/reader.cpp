#include "c/reader.hpp"

#include "c/bytes.hpp"
#include "c/layout.hpp"
#include "c/status.hpp"
#include "c/utf8_out.hpp"
#include "textio/names.hpp"

#include <utility>

namespace {

using textio::c::guarded;
using textio::c::require;
using textio::reading::End;
using textio::reading::Fault;

/// The member of `list` at `index`, which is added if the list is too short.
template <class Value>
Value& at(std::deque<Value>& list, std::size_t index) {
    while (list.size() <= index) {
        list.emplace_back();
    }
    return list[index];
}

/// Makes a reader of what `start` hands over to it.
template <class Start>
textio_status made(const textio_layout* layout, std::size_t proposal, textio_reader** reader,
                   Start start) {
    return guarded([&] {
        require(reader != nullptr, "there is no place for the reader");
        *reader = nullptr;
        require(layout != nullptr, "there is no layout");
        require(proposal < layout->proposals.size(), "there is no such proposal");
        auto owned = std::make_unique<textio_reader>(*layout, proposal);
        start(*owned);
        *reader = owned.release();
    });
}

} // namespace

textio_reader::textio_reader(const textio_layout& layout, std::size_t proposal)
    : proposal_(layout.proposals[proposal].reading), is_by_rules_(layout.is_by_rules()) {
    settings_.tell = [this](const textio::reading::Irregular& /*record*/) { ++irregular_; };
}

void textio_reader::read(std::unique_ptr<textio::utf8::ByteSource> bytes) {
    bytes_ = std::move(bytes);
    source_.emplace(*bytes_);
    stream_.emplace(*source_);
}

/// The rules count their header in lines as they are read, advice in lines of the text.
void textio_reader::begin() {
    if (is_by_rules_ && stream_) {
        reader_.emplace(*proposal_.strategy, *stream_, settings_);
    } else if (is_by_rules_) {
        reader_.emplace(*proposal_.strategy, text_, settings_);
    } else if (stream_) {
        reader_.emplace(proposal_, *stream_, settings_);
    } else {
        reader_.emplace(proposal_, text_, settings_);
    }
}

bool textio_reader::next() {
    if (!has_begun()) {
        begin();
    }
    return reader_->next();
}

std::size_t textio_reader::fields() const noexcept {
    return has_begun() ? reader_->fields().size() : 0;
}

Fault textio_reader::fault() const noexcept {
    return fields() > 0 ? reader_->fault() : Fault::none;
}

End textio_reader::end() const noexcept {
    return has_begun() ? reader_->end() : End::not_yet;
}

std::u16string_view textio_reader::value(std::size_t field) {
    const std::u16string_view value = textio::reading::cell_value(
        reader_->fields()[field], reader_->options(), at(buffers_, field));
    return value.data() == nullptr ? std::u16string_view(u"") : value;
}

const std::string& textio_reader::utf8_value(std::size_t field) {
    std::string& bytes = at(utf8_values_, field);
    textio::c::to_utf8(value(field), bytes);
    return bytes;
}

textio_status textio_reader_utf16(const textio_layout* layout, size_t proposal,
                                  const textio_unit* text, size_t units, textio_reader** reader) {
    return made(layout, proposal, reader, [=](textio_reader& made_reader) {
        require(text != nullptr || units == 0, "there is no text");
        made_reader.read(textio::Field(text, units));
    });
}

textio_status textio_reader_utf8(const textio_layout* layout, size_t proposal, const char* bytes,
                                 size_t size, textio_reader** reader) {
    return made(layout, proposal, reader, [=](textio_reader& made_reader) {
        require(bytes != nullptr || size == 0, "there are no bytes");
        made_reader.read(std::make_unique<textio::c::MemoryBytes>(std::string_view(bytes, size)));
    });
}

textio_status textio_reader_source(const textio_layout* layout, size_t proposal, textio_read read,
                                   void* context, textio_reader** reader) {
    return made(layout, proposal, reader, [=](textio_reader& made_reader) {
        require(read != nullptr, "there is no callback");
        made_reader.read(std::make_unique<textio::c::CallbackBytes>(read, context));
    });
}

void textio_reader_free(textio_reader* reader) {
    std::unique_ptr<textio_reader>(reader).reset();
}

textio_status textio_reader_policy(textio_reader* reader, const char* policy) {
    return guarded([=] {
        require(reader != nullptr, "there is no reader");
        require(policy != nullptr, "which policy? It is null");
        require(!reader->has_begun(), "the policy comes too late, as reading has begun");
        const auto known = textio::policy_named(policy);
        if (!known) {
            throw textio::c::Failure{TEXTIO_BAD_VALUE, "policy: '" + std::string(policy) +
                                                           "' is none of keep, pad, skip, stop"};
        }
        reader->policy(*known);
    });
}

textio_status textio_reader_next(textio_reader* reader, int* has_record) {
    return guarded([=] {
        require(has_record != nullptr, "there is no place for the answer");
        *has_record = 0;
        require(reader != nullptr, "there is no reader");
        *has_record = reader->next() ? 1 : 0;
    });
}

size_t textio_reader_fields(const textio_reader* reader) {
    return reader == nullptr ? 0 : reader->fields();
}

const textio_unit* textio_reader_field_utf16(textio_reader* reader, size_t field, size_t* length) {
    std::u16string_view value;
    guarded([&] {
        if (field < textio_reader_fields(reader)) {
            value = reader->value(field);
        }
    });
    if (length != nullptr) {
        *length = value.size();
    }
    return value.data();
}

const char* textio_reader_field_utf8(textio_reader* reader, size_t field, size_t* length) {
    const std::string* value = nullptr;
    guarded([&] {
        if (field < textio_reader_fields(reader)) {
            value = &reader->utf8_value(field);
        }
    });
    if (length != nullptr) {
        *length = value == nullptr ? 0 : value->size();
    }
    return value == nullptr ? nullptr : value->c_str();
}

size_t textio_reader_line(const textio_reader* reader) {
    return reader == nullptr ? 0 : reader->line();
}

const char* textio_reader_fault(const textio_reader* reader) {
    return reader == nullptr ? nullptr : textio::name_of(reader->fault()).data();
}

size_t textio_reader_irregular(const textio_reader* reader) {
    return reader == nullptr ? 0 : reader->irregular();
}

const char* textio_reader_end(const textio_reader* reader) {
    return reader == nullptr ? nullptr : textio::name_of(reader->end()).data();
}
