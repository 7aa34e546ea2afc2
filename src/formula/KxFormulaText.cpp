#include "formula/KxFormulaText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace plotkit {

namespace {

double Sign(double a)
{
    return a > 0 ? 1 : a < 0 ? -1 : a;
}

constexpr std::array Functions{
    TKxFormulaFunction{"abs", std::fabs},
    TKxFormulaFunction{"acos", std::acos},
    TKxFormulaFunction{"acosh", std::acosh},
    TKxFormulaFunction{"arccos", std::acos},
    TKxFormulaFunction{"arcsin", std::asin},
    TKxFormulaFunction{"arctan", std::atan},
    TKxFormulaFunction{"asin", std::asin},
    TKxFormulaFunction{"asinh", std::asinh},
    TKxFormulaFunction{"atan", std::atan},
    TKxFormulaFunction{"atan2", nullptr, std::atan2},
    TKxFormulaFunction{"atanh", std::atanh},
    TKxFormulaFunction{"cos", std::cos},
    TKxFormulaFunction{"cosh", std::cosh},
    TKxFormulaFunction{"erf", std::erf},
    TKxFormulaFunction{"erfc", std::erfc},
    TKxFormulaFunction{"exp", std::exp},
    TKxFormulaFunction{"gamma", std::tgamma},
    TKxFormulaFunction{"lg", std::log10},
    TKxFormulaFunction{"ln", std::log},
    TKxFormulaFunction{"log", std::log},
    TKxFormulaFunction{"log10", std::log10},
    TKxFormulaFunction{"log2", std::log2},
    TKxFormulaFunction{"max", nullptr, std::fmax},
    TKxFormulaFunction{"min", nullptr, std::fmin},
    TKxFormulaFunction{"pow", nullptr, std::pow},
    TKxFormulaFunction{"rint", std::rint},
    TKxFormulaFunction{"sign", Sign},
    TKxFormulaFunction{"sin", std::sin},
    TKxFormulaFunction{"sinh", std::sinh},
    TKxFormulaFunction{"sqrt", std::sqrt},
    TKxFormulaFunction{"tan", std::tan},
    TKxFormulaFunction{"tanh", std::tanh},
};

bool IsLetter(char c)
{
    return c >= 'a' && c <= 'z';
}

bool IsInWord(char c)
{
    return IsLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '.';
}

}  // namespace

std::span<const TKxFormulaFunction> FormulaFunctionTable()
{
    return Functions;
}

std::string PlainFormulaText(std::string_view text)
{
    std::string plain(text);
    for (char& c : plain) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
        else if (static_cast<unsigned char>(c) < ' ')
            c = ' ';
    }
    return plain;
}

std::string_view FormulaWordAt(std::string_view plain, std::size_t position)
{
    std::size_t end = position + 1;
    if (IsInWord(plain[position]))
        while (end < plain.size() && IsInWord(plain[end]))
            ++end;
    else  // what follows the first byte of a character of UTF-8
        while (end < plain.size() && (plain[end] & 0xC0) == 0x80)
            ++end;
    return plain.substr(position, end - position);
}

std::string CoefficientLetters(std::string_view plain)
{
    std::string letters;
    for (std::size_t i = 0; i < plain.size();) {
        const std::string_view word = FormulaWordAt(plain, i);
        i += word.size();
        const std::size_t next = std::min(plain.find_first_not_of(' ', i), plain.size());
        const bool isCall = next < plain.size() && plain[next] == '(';
        if (word.size() == 1 && IsLetter(word[0]) && word[0] != 'x' && !isCall)
            letters += word[0];
    }
    std::ranges::sort(letters);
    letters.erase(std::unique(letters.begin(), letters.end()), letters.end());
    return letters;
}

}  // namespace plotkit
