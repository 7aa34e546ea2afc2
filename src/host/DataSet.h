// The job of DataSet is the records of a table, one of them the current one, and the news of them, whoever keeps them.
#pragma once

#include <optional>
#include <variant>

#include "host/Array.h"
#include "host/Component.h"

namespace plotkit {

class TDataSource;

enum TDataSetState : std::uint8_t
{
    dsInactive,
    dsBrowse,
    dsEdit,
    dsInsert
};

/// What those who show the records are told, the weaker first.
enum TDataNote : std::uint8_t
{
    dnNone,
    dnRecord,  ///< another record is the current one, or a field of it changed
    dnUpdate,  ///< there may be other records
    dnActive   ///< opened or closed
};

/// Nothing is an empty field.
using TFieldValue = std::variant<std::monostate, double, std::string>;

/// Fields count from 0, record numbers from 1 unless a class numbers them otherwise. While the controls are disabled
/// the cursor may walk without ending an edit; the record being edited is the current one again when they are enabled.
class TDataSet : public TComponent
{
public:
    explicit TDataSet(TComponent* owner);
    ~TDataSet() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TDataSetState GetState() const { return FState; }
    bool IsEditing() const { return FState == dsEdit || FState == dsInsert; }
    /// A field was set since the edit began.
    bool IsModified() const { return FIsModified; }
    bool GetActive() const { return FState != dsInactive; }
    /// While a form is read the wish is kept until all of it is there.
    void SetActive(bool active);
    void Loaded() override;
    /// Nothing when open; raises what the place of the records raises, and stays closed.
    void Open();
    /// An edit is given up.
    void Close();

    virtual int FieldCount() const = 0;
    virtual std::string FieldName(int field) const = 0;
    /// Letter case counts only where it decides; -1 when there is none.
    int FindField(std::string_view name) const;

    /// Of the current record; NaN for an empty field. EConvertError that names field, text and record for a text that
    /// is no number.
    double FieldReal(int field) const;
    /// As it is shown; empty for an empty field.
    std::string FieldText(int field) const;

    virtual int RecordCount() const = 0;
    /// Whether record numbers ascend by one.
    virtual bool IsSequenced() const { return true; }
    /// Of the current record: -1 for one that is being inserted, 0 behind the last one.
    int GetRecNo() const;
    /// Nothing for a number that no record has.
    void SetRecNo(int recNo);
    void First();
    void Next();
    bool IsEnd() const { return !OnNewRecord() && FRow >= RecordCount(); }
    /// The values of a field from the first record up to the first empty one, the cursor behind them; errors as
    /// `FieldReal`.
    virtual TArray<double> ReadField(int field);

    // Each move to another record posts an edit that changed something and gives up one that did not.
    void Edit();
    void Insert();  ///< before the current record
    void Append();
    void SetField(int field, const TFieldValue& value);
    void Post();
    void Cancel();
    void Delete();
    /// The records as they are now; when that fails those known stay.
    void Refresh();

    /// Counted. News are kept back and given as one, the strongest, when all have been taken back.
    void DisableControls();
    void EnableControls();
    bool ControlsDisabled() const { return FDisabled > 0; }

protected:
    virtual void DoOpen() {}
    virtual void DoClose() {}
    virtual void DoRefresh() {}
    virtual TFieldValue ValueOf(int row, int field) const = 0;
    virtual int RecNoOf(int row) const { return row + 1; }
    /// Stores what was set, a value or nothing per field, in a row that is there, or in a new one before `row`. Returns
    /// the row it is in now.
    virtual int DoPost(int row, bool isNew, std::span<const std::optional<TFieldValue>> values) = 0;
    virtual void DoDelete(int row) = 0;
    /// To be called by classes whose records changed by themselves; ends an edit.
    void RecordsChanged();
    /// The same for a single record whose fields were changed by somebody else.
    void RecordEdited(int row);
    /// EComponentError that tells a closed data set.
    void CheckOpen() const;
    void SetCursor(int row) { FRow = row; }

private:
    friend class TDataSource;

    bool OnNewRecord() const { return FState == dsInsert && !FIsWalking; }
    /// Posts or gives up an edit; the cursor stays on its record.
    void FinishEdit();
    void BeginEdit(TDataSetState state, int row);
    void EndEdit(int row);
    void Leave();
    void MoveTo(int row);
    TFieldValue CurrentValue(int field) const;
    void Tell(TDataNote note);

    std::vector<TDataSource*> FSources;
    std::vector<std::optional<TFieldValue>> FEdited;  ///< per field; empty: nothing was set
    TDataSetState FState = dsInactive;
    int FRow = 0;
    int FEditRow = 0;  ///< of an insertion: the row that follows
    int FDisabled = 0;
    int FRowShown = 0;  ///< when the controls were disabled
    bool FIsModified = false;
    bool FIsWanted = false;   ///< to be opened when the form has been read
    bool FIsWalking = false;  ///< away from the record being edited
    TDataNote FPending = dnNone;
};

}  // namespace plotkit
