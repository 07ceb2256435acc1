#include "typedetection/field_text.hpp"

#include <functional>
#include <string>

namespace textio::operations {
namespace {

using Text = std::u16string;

enum class Copy { none, inside, heap };

struct Case {
    const char* name;
    std::function<void(MutableField&)> change;
    Text text;
    Text expected;
    Copy copy = Copy::none;
};

template <class Operation>
std::function<void(MutableField&)> with(Operation operation) {
    return [operation](MutableField& field) { operation.process(field); };
}

Copy copy_of(const MutableField& field) {
    const bool inside = field.copy_begin == field.inline_units;
    return !field.owns_copy ? Copy::none : inside ? Copy::inside : Copy::heap;
}

TEST(Operations, ChangeTheFieldAndNeverTheSample) {
    const auto trim = with(trim_whitespace{u" \t"});
    const auto take_quotes = with(unquote{});
    const auto replace = with(replace_characters{u",;", u'.'});
    const auto remove = with(remove_characters{u","});
    const auto find_number = with(trim_non_numeric{});
    const auto change_a_cut_copy = [](MutableField& field) {
        replace_characters{u",", u'.'}.process(field);
        field.advance(1);
        replace_characters{u".", u';'}.process(field);
    };
    const Case cases[] = {
        {"a copy that was cut", change_a_cut_copy, u",1,", u"1;", Copy::inside},
        {"trim both ends", trim, u" \t a b \t", u"a b"},
        {"trim a long text", trim, u' ' + Text(99, u'x'), Text(99, u'x')},
        {"quoted", take_quotes, uR"("abc")", u"abc"},
        {"quoted nothing", take_quotes, uR"("")", u""},
        {"never closed", take_quotes, uR"("abc)", u"abc"},
        {"quotes further in", take_quotes, uR"(a"b")", uR"(a"b")"},
        {"doubled", take_quotes, uR"("a""b")", uR"(a"b)", Copy::inside},
        {"doubled only", take_quotes, uR"("""")", uR"(")"},
        {"all quotes", take_quotes, uR"(""""""")", uR"(""")"},
        {"doubled in front", take_quotes, uR"("""a")", uR"("a)"},
        {"doubled in front and closed there", take_quotes, uR"(""""a"b")", uR"("a"b")"},
        {"doubled at the end", take_quotes, uR"("a"")", uR"(a")"},
        {"doubled in front of the closing quote", take_quotes, uR"("a""""")", uR"(a"")"},
        {"doubled at both ends", take_quotes, uR"("""a""")", uR"("a")"},
        {"doubled at both ends of a long text", take_quotes, uR"(""")" + Text(40, u'b') + uR"(""")",
         u'"' + Text(40, u'b') + uR"(")"},
        {"closed in front", take_quotes, uR"(""abc")", uR"(abc")"},
        {"doubled in front and further in", take_quotes, uR"("""a""b")", uR"("a"b)", Copy::inside},
        {"behind the closing quote", take_quotes, uR"("abc"def)", u"abcdef", Copy::inside},
        {"all together", take_quotes, uR"("a""b""c"d""e")", uR"(a"b"cd""e")", Copy::inside},
        {"long", take_quotes, uR"("a"")" + Text(40, u'b') + u'"', u"a\"" + Text(40, u'b'), Copy::heap},
        {"missing", with(treat_as_missing{{u"NA", u"-"}}), u"-", u""},
        {"not quite missing", with(treat_as_missing{{u"NA", u"-"}}), u"N", u"N"},
        {"nothing to replace", replace, u"1.5", u"1.5"},
        {"replace", replace, u",1;2,", u".1.2.", Copy::inside},
        {"nothing to remove", remove, Text(40, u'1'), Text(40, u'1')},
        {"remove all", remove, u",,,", u""},
        {"remove at the ends", remove, u",," + Text(40, u'1') + u',', Text(40, u'1')},
        {"remove", remove, u",1,,2,", u"12", Copy::inside},
        {"the longest short text", remove, u"1," + Text(29, u'1'), Text(30, u'1'), Copy::inside},
        {"the shortest long text", remove, u"1," + Text(30, u'1'), Text(31, u'1'), Copy::heap},
        {"a long text of which a short one is copied", remove, u",1,2" + Text(9, u','), u"12", Copy::inside},
        {"the first number", find_number, u"a -1.5e3 kg 7", u"-1.5e3"},
        {"marks without a number", find_number, u"+ - . x", u"+ - . x"},
        {"a sign in front of the sign", find_number, u"+-1", u"-1"},
        {"complex number", find_number, u"z=1-2.5jx", u"1-2.5j"},
        {"imaginary number", find_number, u"z=5i!", u"5i"},
        {"sum", find_number, u"3+4", u"3"},
        {"no sign between", find_number, u"1.5.5i!", u"1.5"},
        {"implied one", find_number, u"1+i", u"1"},
        {"spelled in front", find_number, u"-inf 12", u"-inf 12"},
        {"spelled further in", find_number, u"x +NaN", u"+NaN"},
    };
    for (const Case& c : cases) {
        const Text sample = c.text;
        MutableField field{Field(sample)};
        c.change(field);
        SCOPED_TRACE(c.name + (": " + test::shown(c.text)));
        EXPECT_EQ(Text(field.view()), c.expected);
        EXPECT_EQ(copy_of(field), c.copy);
        EXPECT_EQ(sample, c.text);
    }
}

} // namespace
} // namespace textio::operations
