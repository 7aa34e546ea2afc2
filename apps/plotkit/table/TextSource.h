// The job of TextSource is to read a file block by block as UTF-8, and to say how far it is.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iosfwd>
#include <string>

#include "host/Errors.h"

namespace plotkit {

/// Somebody did not want to wait for the end of the file.
class ECancelled : public EError
{
    using EError::EError;
};

/// Bytes read and bytes in all, 0 when nobody knows; false stops the reading.
using TReadProgress = std::function<bool(std::uint64_t read, std::uint64_t total)>;

enum TTextEncoding
{
    teUtf8,
    teUtf8WithMark,
    teUtf16Little,
    teUtf16Big
};

class TTextSource
{
public:
    /// "-": standard input. EFileError, naming the file: there is none, it is a directory, it cannot be opened.
    TTextSource(const std::filesystem::path& file, TReadProgress progress);
    /// The same from a stream, which must outlive the source; `name` stands for the file in messages.
    TTextSource(std::istream& stream, std::string name, TReadProgress progress);

    const std::string& Name() const { return FName; }
    TTextEncoding Encoding() const { return FEncoding; }
    /// Whether it is a file that can be read again from any place.
    bool IsRegular() const { return FIsRegular; }
    /// Goes on at byte `offset` of a file whose encoding is known. EFileError.
    void ContinueAt(std::uint64_t offset, TTextEncoding encoding);

    /// Appends the next block; false, with nothing appended, at the end. EFileError: it cannot be read. ECancelled: the
    /// progress said so, which is asked some twenty times a second.
    bool ReadMore(std::string& text);

    /// How many bytes of the file, the byte-order mark apart, such a text was.
    static std::uint64_t BytesOf(std::string_view text, TTextEncoding encoding);
    static std::uint64_t MarkSize(TTextEncoding encoding);

private:
    std::size_t ReadBlock(char* block, std::size_t size);
    void Report();
    void FindEncoding(std::string& text);
    void AppendUtf16(std::string_view bytes, bool isEnd, std::string& text);
    void AppendUnit(unsigned unit, std::string& text);

    std::string FName;
    std::ifstream FFile;
    std::istream* FStream;
    TReadProgress FProgress;
    std::chrono::steady_clock::time_point FLastReport;
    std::uint64_t FRead = 0, FTotal = 0;
    std::string FRaw;        ///< a block of UTF-16
    std::string FHalfUnit;   ///< its last byte when their number is odd
    unsigned FHighHalf = 0;  ///< the first half of a pair
    TTextEncoding FEncoding = teUtf8;
    bool FIsRegular = false;
    bool FStarted = false;
};

}  // namespace plotkit
