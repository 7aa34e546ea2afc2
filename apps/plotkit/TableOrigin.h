// The job of TableOrigin is the place that a document's table comes from: a text file or a database.
#pragma once

#include <memory>

#include "plotkit/Options.h"
#include "plotkit/table/RowFollower.h"

namespace plotkit {

class TTableOrigin
{
public:
    TTableOrigin() = default;
    TTableOrigin(const TTableOrigin&) = delete;
    TTableOrigin& operator=(const TTableOrigin&) = delete;
    virtual ~TTableOrigin() = default;

    /// EFileError, EConvertError that name the place; ECancelled.
    virtual TCsvTable Read(const TReadOptions& options) = 0;
    /// A table that was read from here, further; this object outlives the follower. EFileError when that cannot be.
    virtual std::unique_ptr<TRowFollower> Follow(const TCsvTable& table, std::vector<TFollowedColumn> columns,
                                                 const TDialectWish& wish) = 0;
};

/// Of the file or database that the options name. EConvertError for a database where nobody opens them.
std::unique_ptr<TTableOrigin> OriginOf(const TOptions& options);

/// Who opens databases is named by the program.
using TOpenDatabase = std::unique_ptr<TTableOrigin> (*)(const TOptions& options);
void SetDatabases(TOpenDatabase open);

}  // namespace plotkit
