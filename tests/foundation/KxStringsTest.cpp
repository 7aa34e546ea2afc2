#include "foundation/KxStrings.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "host/Errors.h"
#include "host/Host.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

TEST(KxStrings, Tokens)
{
    // With tokens replaced by "(p)", when there are any.
    const std::tuple<const char*, char, const char*> cases[] = {
        {"2*x+1", 'X', "2*(p)+1"}, {"a*sin(a)", 'a', "(p)*sin((p))"},
        {"a", 'a', "(p)"},         {"a(x)+a", 'a', "a(x)+(p)"},
        {"exp(x)", 'e', nullptr},  {"aa", 'a', nullptr},
        {"a,b", 'a', nullptr},     {"1+ a", 'a', nullptr}};
    for (const auto& [text, token, replaced] : cases) {
        EXPECT_EQ(ContainsToken(text, token), replaced != nullptr) << text;
        EXPECT_EQ(ReplaceTokenWithBracket(text, token, "(p)"), replaced ? replaced : text);
    }
    EXPECT_EQ(ReplaceTokenWith("x(2)+a*X", 'x', "y"), "y(2)+a*y");
    // Places are those of the original text, also behind a longer or an empty replacement.
    EXPECT_EQ(ReplaceTokenWith("x+x", 'x', "yz"), "yzyzx");
    EXPECT_EQ(ReplaceTokenWith("x+x", 'x', ""), "+x");
    EXPECT_EQ(StripBlanks(" a\t b "), "a\tb");
}

TEST(KxStrings, NumbersAsText)
{
    EXPECT_EQ(IntToStrDigits(-5, 3), "0-5");
    EXPECT_EQ(IntToStrDigits(1234, 3), "1234");
    for (const auto& [seconds, text] :
         {std::pair{0, "00:00"}, {75, "01:15"}, {3675, "01:01:15"}, {90061, "1d01:01:01"}})
        EXPECT_EQ(SecondsToStr(seconds), text);
    for (const auto& [column, header] : {std::pair{26, "Z"}, {27, "AA"}, {702, "ZZ"}, {703, "AAA"}, {0, ""}, {-5, ""}})
        EXPECT_EQ(ColumnToCharHeader(column), header);
    EXPECT_EQ(RealToStr(1.0 / 3), "0.33333333333333");
    EXPECT_EQ(Float8_4(123456789), "1.2345679E0008");
    EXPECT_EQ(RealToStrDigits(1.0 / 3, 0), "0.333333333333333");
    EXPECT_EQ(RealToStrDigits(0x1p-40, 100), "9.0949470177292824E-13");
    EXPECT_EQ(RealToStrDigits(1e100, std::numeric_limits<int>::max()), "1E100");
    const std::tuple<double, int, const char*> cases[] = {
        {3.14159265, 5, "3.142"}, {-3.14159265, 5, "-3.14"}, {1234567, 5, "1.2E6"},
        {123, 2, "1E2"},          {1.234e-6, 6, "1.2E-6"},   {0.25, 3, "0.3"},
        {12, 1, "1E1"},           {99.96, 4, "100"},         {2.5, -1, "3"}};
    for (const auto& [value, digits, text] : cases)
        EXPECT_EQ(RealToStrDigits(value, digits), text) << value << ' ' << digits;
}

TEST(KxStrings, DecimalComma)
{
    TFakeHost host;
    const THostGuard guard(host);
    EXPECT_FALSE(IsNumber("2,5"));
    host.Formats.DecimalSeparator = ',';
    EXPECT_EQ(RealToStr(2.5), "2,5");
    EXPECT_EQ(RealToStrDigits(2.5e-9, 8), "2,5E-9");
    EXPECT_EQ(RealToAmericanStr(2.5), "2.5");
    EXPECT_EQ(RealToAmericanStrDigits(1.0 / 3, 5), "0.333");
    EXPECT_EQ(DeAmericanize("2.5;3.5"), "2,5;3,5");
    EXPECT_TRUE(IsNumber("2,5") && IsNumber("2.5") && IsNumber(" -1e3 "));
    EXPECT_FALSE(IsNumber("2,5.1") || IsNumber("") || IsNumber("e") || IsNumber("2 m"));
}

TEST(KxStrings, ExtractsIntegers)
{
    std::string text = "abc12;7";
    EXPECT_EQ(ExtractOneInt(text), 12);
    EXPECT_EQ(text, "7");
    EXPECT_EQ(ExtractOneInt(text), 7);
    EXPECT_EQ(text, "7");
    const std::pair<std::string, const char*> errors[] = {{"", ""},     {"E", ""},           {"Edge 5", "dge 5"},
                                                          {"-;3", "3"}, {"99999999999", ""}, {".5", "5"}};
    for (auto [rest, left] : errors) {
        EXPECT_THROW(ExtractOneInt(rest), EConvertError) << left;
        EXPECT_EQ(rest, left);
    }
}

TEST(KxStrings, ExtractsReals)
{
    const std::tuple<std::string, double, const char*> cases[] = {
        {"1.5;2;0.25", 1.5, "2;0.25"}, {"0.25", 0.25, ""},  {"x=3.5 y", 3.5, ""}, {"1;;;-2", 1, "-2"},
        {"1e3;2", 1000, "2"},          {"1.2.3", 1.2, "3"}, {"5+6", 5, "6"},      {"7 Edge", 7, "Edge"}};
    for (const auto& [whole, value, left] : cases) {
        std::string text = whole;
        std::string_view view = whole;
        EXPECT_EQ(ExtractOneReal(text), value) << whole;
        EXPECT_EQ(ExtractOneReal(view), value) << whole;
        EXPECT_EQ(text, left);
        EXPECT_EQ(view, left);
    }
    const std::pair<std::string, const char*> errors[] = {{"", ""},     {"abc", ""},   {"E", ""},
                                                          {"-;8", "8"}, {"1e;5", "5"}, {"--5", "5"}};
    for (const auto& [whole, left] : errors) {
        std::string text = whole;
        EXPECT_EQ(MessageOf<EConvertError>([&] { ExtractOneReal(text); }), "Error during integer extraction");
        EXPECT_EQ(text, left);
    }
    std::string text = "the 3 -2";
    EraseToNumber(text);
    EXPECT_EQ(text, "e 3 -2");
    for (const char* rest : {"3 -2", "-2", "", ""}) {
        EraseToNextNumber(text);
        EXPECT_EQ(text, rest);
    }
}

}  // namespace
}  // namespace plotkit
