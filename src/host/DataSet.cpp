#include "host/DataSet.h"

#include <algorithm>
#include <exception>
#include <limits>

#include "host/DataLink.h"
#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "host/StringList.h"

namespace plotkit {

namespace {

constexpr std::array DataSetProperties{
    Property<&TDataSet::GetActive, &TDataSet::SetActive>("Active"),
};

}  // namespace

constinit const TClassInfo TDataSet::Class{"TDataSet", &TComponent::Class, DataSetProperties};

TDataSet::TDataSet(TComponent* owner) : TComponent(owner) {}

TDataSet::~TDataSet()
{
    BeginDestroy();
}

void TDataSet::SetActive(bool active)
{
    if (IsLoading())
        FIsWanted = active;
    else
        active ? Open() : Close();
}

void TDataSet::Loaded()
{
    TComponent::Loaded();
    if (std::exchange(FIsWanted, false))
        Open();
}

void TDataSet::Open()
{
    if (GetActive())
        return;
    DoOpen();
    FState = dsBrowse;
    FRow = 0;
    Tell(dnActive);
}

void TDataSet::Close()
{
    if (!GetActive())
        return;
    EndEdit(0);
    FState = dsInactive;
    DoClose();
    Tell(dnActive);
}

void TDataSet::CheckOpen() const
{
    if (!GetActive())
        throw EComponentError(GetName() + (GetName().empty() ? "The" : ": the") + " data set is closed");
}

int TDataSet::FindField(std::string_view name) const
{
    int same = -1;
    for (int field = FieldCount() - 1; field >= 0; --field) {
        const std::string own = FieldName(field);
        if (own == name)
            return field;
        if (SameText(own, name))
            same = field;
    }
    return same;
}

TFieldValue TDataSet::CurrentValue(int field) const
{
    if (field < 0 || field >= FieldCount())
        throw ERangeError("There is no field " + std::to_string(field));
    const bool isEdited = IsEditing() && !FEdited.empty() && (FState == dsInsert ? OnNewRecord() : FRow == FEditRow);
    if (isEdited && FEdited[static_cast<std::size_t>(field)])
        return *FEdited[static_cast<std::size_t>(field)];
    return OnNewRecord() || IsEnd() ? TFieldValue() : ValueOf(FRow, field);
}

double TDataSet::FieldReal(int field) const
{
    const TFieldValue value = CurrentValue(field);
    if (const double* const real = std::get_if<double>(&value))
        return *real;
    const std::string* const text = std::get_if<std::string>(&value);
    if (!text || text->empty())
        return std::numeric_limits<double>::quiet_NaN();
    if (const auto real = ParseReal(*text))
        return *real;
    throw EConvertError("field \"" + FieldName(field) + "\": \"" + *text + "\" is no number (record " +
                        std::to_string(GetRecNo()) + ")");
}

std::string TDataSet::FieldText(int field) const
{
    const TFieldValue value = CurrentValue(field);
    if (const double* const real = std::get_if<double>(&value))
        return FormatExact(*real);
    const std::string* const text = std::get_if<std::string>(&value);
    return text ? *text : std::string();
}

int TDataSet::GetRecNo() const
{
    if (OnNewRecord())
        return -1;
    return !GetActive() || IsEnd() ? 0 : RecNoOf(FRow);
}

void TDataSet::SetRecNo(int recNo)
{
    CheckOpen();
    Leave();
    for (int row = IsSequenced() ? std::max(0, recNo - RecNoOf(0)) : 0; row < RecordCount(); ++row) {
        if (RecNoOf(row) == recNo) {
            MoveTo(row);
            return;
        }
        if (IsSequenced())
            return;
    }
}

void TDataSet::First()
{
    CheckOpen();
    Leave();
    MoveTo(0);
}

void TDataSet::Next()
{
    CheckOpen();
    Leave();
    if (!IsEnd())
        MoveTo(FRow + 1);
}

TArray<double> TDataSet::ReadField(int field)
{
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(RecordCount()));
    for (First(); !IsEnd() && !FieldText(field).empty(); Next())
        values.push_back(FieldReal(field));
    return TArray<double>(std::move(values));
}

void TDataSet::MoveTo(int row)
{
    FRow = row;
    if (!ControlsDisabled())
        Tell(dnRecord);
}

void TDataSet::Leave()
{
    if (!IsEditing())
        return;
    if (ControlsDisabled())
        FIsWalking = true;
    else if (IsModified())
        Post();
    else
        Cancel();
}

void TDataSet::FinishEdit()
{
    if (!IsEditing())
        return;
    const int walked = FIsWalking ? FRow : -1;
    const int edited = FEditRow;
    const int before = RecordCount();
    IsModified() ? Post() : Cancel();
    if (walked >= 0)
        FRow = RecordCount() > before && edited <= walked ? walked + 1 : walked;
}

void TDataSet::BeginEdit(TDataSetState state, int row)
{
    FState = state;
    FRow = FEditRow = row;
    FIsWalking = false;
    Tell(dnRecord);
}

void TDataSet::Edit()
{
    CheckOpen();
    if (IsEditing() && !FIsWalking)
        return;
    FinishEdit();
    IsEnd() ? Append() : BeginEdit(dsEdit, FRow);
}

void TDataSet::Insert()
{
    CheckOpen();
    FinishEdit();
    BeginEdit(dsInsert, std::min(FRow, RecordCount()));
}

void TDataSet::Append()
{
    CheckOpen();
    FinishEdit();
    BeginEdit(dsInsert, RecordCount());
}

void TDataSet::SetField(int field, const TFieldValue& value)
{
    CheckOpen();
    if (!IsEditing())
        throw EComponentError("The record is not being edited");
    if (field < 0 || field >= FieldCount())
        throw ERangeError("There is no field " + std::to_string(field));
    FEdited.resize(static_cast<std::size_t>(FieldCount()));
    FEdited[static_cast<std::size_t>(field)] = value;
    FIsModified = true;
    Tell(dnRecord);
}

void TDataSet::EndEdit(int row)
{
    FState = dsBrowse;
    FEdited.clear();
    FIsModified = FIsWalking = false;
    FRow = row;
}

void TDataSet::Post()
{
    CheckOpen();
    if (!IsEditing())
        return;
    const bool isNew = FState == dsInsert;
    FEdited.resize(static_cast<std::size_t>(FieldCount()));
    const int row = DoPost(FEditRow, isNew, FEdited);
    EndEdit(row);
    // Who could not see the record change has to look at all of them.
    Tell(isNew || ControlsDisabled() ? dnUpdate : dnRecord);
}

void TDataSet::Cancel()
{
    if (!IsEditing())
        return;
    const bool wasNew = FState == dsInsert;
    const int row = FEditRow;
    const bool wasModified = IsModified();
    FEdited.clear();
    FIsWalking = false;
    FRow = row;
    // Those who followed the edit see the old values of the record while it is still being edited.
    if (wasModified && !wasNew)
        Tell(ControlsDisabled() ? dnUpdate : dnRecord);
    EndEdit(row);
    Tell(wasModified && wasNew ? dnUpdate : dnRecord);
}

void TDataSet::Delete()
{
    CheckOpen();
    if (IsEditing() && FIsWalking && !(FState == dsEdit && FRow == FEditRow))
        FinishEdit();
    if (IsEditing()) {
        const bool wasNew = FState == dsInsert;
        Cancel();
        if (wasNew)
            return;
    }
    if (IsEnd())
        return;
    DoDelete(FRow);
    FRow = std::clamp(FRow, 0, std::max(RecordCount() - 1, 0));
    Tell(dnUpdate);
}

void TDataSet::Refresh()
{
    CheckOpen();
    Leave();
    DoRefresh();
    RecordsChanged();
}

void TDataSet::RecordsChanged()
{
    EndEdit(std::clamp(FRow, 0, std::max(RecordCount() - 1, 0)));
    Tell(dnUpdate);
}

void TDataSet::RecordEdited(int row)
{
    if (IsEditing() || ControlsDisabled()) {
        Tell(dnUpdate);
        return;
    }
    const int before = FRow;
    FState = dsEdit;
    FRow = FEditRow = row;
    FIsModified = true;
    try {
        Tell(dnRecord);
    } catch (...) {
        EndEdit(before);
        throw;
    }
    EndEdit(before);
}

void TDataSet::DisableControls()
{
    if (++FDisabled == 1)
        FRowShown = FRow;
}

void TDataSet::EnableControls()
{
    if (FDisabled == 0 || --FDisabled > 0)
        return;
    if (FIsWalking) {
        FIsWalking = false;
        FRow = FEditRow;
    }
    // Who walks and comes back is not noticed: those who hear of another record may walk themselves.
    const TDataNote moved = GetActive() && FRow != FRowShown ? dnRecord : dnNone;
    Tell(std::max(moved, std::exchange(FPending, dnNone)));
}

void TDataSet::Tell(TDataNote note)
{
    if (ControlsDisabled()) {
        FPending = std::max(FPending, note);
        return;
    }
    if (note == dnNone)
        return;
    const auto life = Lifeline().Watch();
    std::exception_ptr failure;
    for (TDataSource* const source : std::vector(FSources)) {
        if (life.expired())
            break;
        if (std::ranges::find(FSources, source) == FSources.end())
            continue;
        try {
            source->Tell(note);
        } catch (...) {
            failure = failure ? failure : std::current_exception();
        }
    }
    if (failure)
        std::rethrow_exception(failure);
}

}  // namespace plotkit
