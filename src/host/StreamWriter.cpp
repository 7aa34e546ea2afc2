#include <set>

#include "host/ComponentPath.h"
#include "host/NumberFormat.h"
#include "host/Streaming.h"

namespace plotkit {

namespace {

constexpr std::size_t WidestLine = 120;

class TTreeWriter
{
public:
    explicit TTreeWriter(const TComponent& root) : FRoot(const_cast<TComponent&>(root)) {}

    std::string Write()
    {
        WriteObject(FRoot);
        return std::move(FText);
    }

private:
    void WriteObject(TComponent& component)
    {
        // A root that is no control lists all that it owns, and so also what stands inside others.
        if (!FWritten.insert(&component).second)
            return;
        const TClassInfo& info = component.ClassInfo();
        const std::string& name = component.GetName();
        FText += FIndent + "object " + (name.empty() ? "" : name + ": ") + std::string(info.Name) + '\n';
        FIndent += "  ";
        FScale = component.StreamScale();
        WriteRows(component, info.Create ? &Prototype(info) : nullptr, "");
        for (TComponent* child : component.StreamedChildren(FRoot))
            WriteObject(*child);
        FIndent.resize(FIndent.size() - 2);
        FText += FIndent + "end\n";
    }

    /// Without a prototype all rows are written, unless they say themselves when.
    void WriteRows(TPersistent& object, const TPersistent* prototype, const std::string& prefix)
    {
        for (const TPropertyRow& row : AllProperties(object.ClassInfo()))
            if (IsWritten(row, object, prototype))
                WriteRow(row, object, prototype, prefix + std::string(row.Name));
    }

    bool IsWritten(const TPropertyRow& row, const TPersistent& object, const TPersistent* prototype) const
    {
        if (prototype)
            return IsStoredAtScale(row, object, *prototype, FScale);
        return row.Kind != pkEvent && (!row.StoredWhen || row.StoredWhen(object));
    }

    void WriteRow(const TPropertyRow& row, TPersistent& object, const TPersistent* prototype, const std::string& name)
    {
        switch (row.Kind) {
            case pkSub:
                WriteSub(row, object, prototype, name);
                break;
            case pkReference:
                WriteLine(name, ReferencePath(row.GetReference(object), FRoot));
                break;
            case pkBulk:
                WriteList(name, row.GetBulk(object));
                break;
            default: {
                const TPropertyValue value = row.Get(object);
                WriteLine(name, PropertyText(row, row.InPixels ? PixelsToStored(value, FScale) : value));
            }
        }
    }

    void WriteSub(const TPropertyRow& row, TPersistent& object, const TPersistent* prototype, const std::string& name)
    {
        TPersistent& sub = row.SubObject(object);
        const TPersistent* unchanged = prototype ? &row.SubObject(const_cast<TPersistent&>(*prototype)) : nullptr;
        // Of an object of another class, and of one that is stored whatever it holds, everything is written.
        if (row.AlwaysStored || (unchanged && &unchanged->ClassInfo() != &sub.ClassInfo()))
            unchanged = nullptr;
        WriteRows(sub, unchanged, name + '.');
    }

    void WriteLine(const std::string& name, const std::string& value)
    {
        FText += FIndent + name + " = " + value + '\n';
    }

    void WriteList(const std::string& name, const std::vector<double>& values)
    {
        std::size_t lineStart = FText.size();
        FText += FIndent + name + " = (";
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::string text = FormatExact(values[i]) + (i + 1 < values.size() ? ";" : "");
            if (FText.size() - lineStart + text.size() + 1 > WidestLine) {
                FText += '\n';
                lineStart = FText.size();
                FText += FIndent + "  " + text;
            } else {
                FText += (i > 0 ? " " : "") + text;
            }
        }
        FText += ")\n";
    }

    TComponent& FRoot;
    std::set<const TComponent*> FWritten;
    std::string FText;
    std::string FIndent;
    double FScale = 1;
};

}  // namespace

std::string WriteComponentTree(const TComponent& root)
{
    return TTreeWriter(root).Write();
}

}  // namespace plotkit
