#include "plotkit/TableOrigin.h"

#include "host/Errors.h"
#include "plotkit/table/FileFollower.h"

namespace plotkit {
namespace {

TOpenDatabase OpenDatabase = nullptr;

class TFileOrigin : public TTableOrigin
{
public:
    explicit TFileOrigin(const std::string& file) : FFile(file) {}

    TCsvTable Read(const TReadOptions& options) override { return ReadCsvFile(FFile, options); }
    std::unique_ptr<TRowFollower> Follow(const TCsvTable& table, std::vector<TFollowedColumn> columns,
                                         const TDialectWish& wish) override
    {
        return std::make_unique<TFileFollower>(table, std::move(columns), wish);
    }

private:
    std::string FFile;
};

}  // namespace

void SetDatabases(TOpenDatabase open)
{
    OpenDatabase = open;
}

std::unique_ptr<TTableOrigin> OriginOf(const TOptions& options)
{
    if (!options.Database)
        return std::make_unique<TFileOrigin>(options.File);
    if (!OpenDatabase)
        throw EConvertError("--db: this program opens no databases");
    return OpenDatabase(options);
}

}  // namespace plotkit
