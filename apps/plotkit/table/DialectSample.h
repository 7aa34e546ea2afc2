// The job of DialectSample is the first lines of a file, cut and weighed for one way of reading them after another.
#pragma once

#include <string_view>
#include <vector>

#include "plotkit/table/CellText.h"
#include "plotkit/table/TableDialect.h"

namespace plotkit {

struct TSampleLine
{
    std::string_view Text;
    std::size_t Line = 0;    ///< from 1
    std::size_t Offset = 0;  ///< in the sample
    bool IsComment = false;
};

struct TSampleCell
{
    TCellKind Kind = ckMissing;
    std::string Text;  ///< trimmed

    bool IsText() const { return Kind == ckText; }
    /// A number or a date, which numbers with thousands marks are meant to be too.
    bool IsValue() const { return Kind != ckText && Kind != ckMissing; }
};

using TSampleRow = std::vector<TSampleCell>;

/// All lines that are not blank, without the `skip` ones in front. EConvertError when there is none because of a quote
/// that is not closed.
std::vector<TSampleLine> CutSample(std::string_view sample, std::size_t skip, const TCommentMarks& marks);

TSampleRow SplitRow(std::string_view line, char separator, char decimal);

/// The number of cells that most of the rows have; of as many the larger.
std::size_t UsualCellCount(const std::vector<TSampleRow>& rows);

/// How well the rows hold together and how many of their cells are values; the higher the better.
double WeighRows(const std::vector<TSampleRow>& rows, char separator);

}  // namespace plotkit
