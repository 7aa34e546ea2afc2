#include "plotkit/table/TextSource.h"

#include <cerrno>
#include <iostream>
#include <system_error>

namespace plotkit {
namespace {

constexpr std::size_t BlockSize = 1U << 18U;
constexpr std::chrono::milliseconds ReportInterval(50);
constexpr unsigned Replacement = 0xFFFD;

void AppendCode(unsigned code, std::string& text)
{
    const auto put = [&](unsigned byte) { text += static_cast<char>(byte); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6U);
        put(0x80 | (code & 0x3FU));
    } else if (code < 0x10000) {
        put(0xE0 | code >> 12U);
        put(0x80 | (code >> 6U & 0x3FU));
        put(0x80 | (code & 0x3FU));
    } else {
        put(0xF0 | code >> 18U);
        put(0x80 | (code >> 12U & 0x3FU));
        put(0x80 | (code >> 6U & 0x3FU));
        put(0x80 | (code & 0x3FU));
    }
}

}  // namespace

TTextSource::TTextSource(std::istream& stream, std::string name, TReadProgress progress)
    : FName(std::move(name)),
      FStream(&stream),
      FProgress(std::move(progress)),
      FLastReport(std::chrono::steady_clock::now())
{}

TTextSource::TTextSource(const std::filesystem::path& file, TReadProgress progress)
    : TTextSource(FFile, file.string(), std::move(progress))
{
    if (file == "-") {
        FName = "standard input";
        FStream = &std::cin;
        return;
    }
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found)
        throw EFileError(FName + ": there is no such file");
    if (status.type() == std::filesystem::file_type::directory)
        throw EFileError(FName + ": this is a directory, not a file");
    FIsRegular = status.type() == std::filesystem::file_type::regular;
    // Blocks are large already.
    FFile.rdbuf()->pubsetbuf(nullptr, 0);
    FFile.open(file, std::ios::binary);
    if (!FFile)
        throw EFileError(FName + ": cannot be opened: " + std::generic_category().message(errno));
    if (FIsRegular)
        FTotal = std::filesystem::file_size(file, error);
    if (error)
        FTotal = 0;
}

void TTextSource::ContinueAt(std::uint64_t offset, TTextEncoding encoding)
{
    FEncoding = encoding;
    FStarted = true;
    FRead = offset;
    FStream->seekg(static_cast<std::streamoff>(offset));
    if (!*FStream)
        throw EFileError(FName + ": cannot be read");
}

std::uint64_t TTextSource::MarkSize(TTextEncoding encoding)
{
    return encoding == teUtf8 ? 0 : encoding == teUtf8WithMark ? 3 : 2;
}

std::uint64_t TTextSource::BytesOf(std::string_view text, TTextEncoding encoding)
{
    if (encoding == teUtf8 || encoding == teUtf8WithMark)
        return text.size();
    std::uint64_t bytes = 0;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        bytes += code >= 0xF0 ? 4 : code < 0x80 || code >= 0xC0 ? 2 : 0;
    }
    return bytes;
}

std::size_t TTextSource::ReadBlock(char* block, std::size_t size)
{
    FStream->read(block, static_cast<std::streamsize>(size));
    if (FStream->bad())
        throw EFileError(FName + ": cannot be read");
    const auto count = static_cast<std::size_t>(FStream->gcount());
    FRead += count;
    Report();
    return count;
}

void TTextSource::Report()
{
    if (!FProgress)
        return;
    const auto now = std::chrono::steady_clock::now();
    if (now - FLastReport < ReportInterval)
        return;
    FLastReport = now;
    if (!FProgress(FRead, FTotal))
        throw ECancelled(FName + ": reading was stopped");
}

void TTextSource::FindEncoding(std::string& text)
{
    FStarted = true;
    if (text.starts_with("\xEF\xBB\xBF"))
        FEncoding = teUtf8WithMark;
    else if (text.starts_with("\xFF\xFE"))
        FEncoding = teUtf16Little;
    else if (text.starts_with("\xFE\xFF"))
        FEncoding = teUtf16Big;
    text.erase(0, MarkSize(FEncoding));
}

bool TTextSource::ReadMore(std::string& text)
{
    if (FEncoding == teUtf16Little || FEncoding == teUtf16Big) {
        FRaw.resize(BlockSize);
        const std::size_t count = ReadBlock(FRaw.data(), FRaw.size());
        const std::size_t before = text.size();
        AppendUtf16(std::string_view(FRaw).substr(0, count), count == 0, text);
        return count > 0 || text.size() > before;
    }
    const std::size_t before = text.size();
    text.resize(before + BlockSize);
    const std::size_t count = ReadBlock(text.data() + before, BlockSize);
    text.resize(before + count);
    if (FStarted || count == 0)
        return count > 0;
    std::string first = text.substr(before);
    FindEncoding(first);
    text.resize(before);
    if (FEncoding == teUtf16Little || FEncoding == teUtf16Big)
        AppendUtf16(first, false, text);
    else
        text += first;
    return true;
}

void TTextSource::AppendUnit(unsigned unit, std::string& text)
{
    const bool isLow = unit >= 0xDC00 && unit < 0xE000;
    if (FHighHalf && isLow) {
        AppendCode(0x10000 + ((FHighHalf - 0xD800) << 10U) + (unit - 0xDC00), text);
        FHighHalf = 0;
        return;
    }
    if (FHighHalf)
        AppendCode(Replacement, text);
    FHighHalf = unit >= 0xD800 && unit < 0xDC00 ? unit : 0;
    if (!FHighHalf)
        AppendCode(isLow ? Replacement : unit, text);
}

void TTextSource::AppendUtf16(std::string_view bytes, bool isEnd, std::string& text)
{
    const std::string joined = FHalfUnit + std::string(bytes);
    std::size_t i = 0;
    for (; i + 1 < joined.size(); i += 2) {
        const unsigned first = static_cast<unsigned char>(joined[i]),
                       second = static_cast<unsigned char>(joined[i + 1]);
        AppendUnit(FEncoding == teUtf16Little ? first | second << 8U : first << 8U | second, text);
    }
    FHalfUnit = joined.substr(i);
    if (isEnd && FHighHalf) {
        AppendCode(Replacement, text);
        FHighHalf = 0;
    }
}

}  // namespace plotkit
