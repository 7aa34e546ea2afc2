#include "widgets/KxEditPlaces.h"

namespace plotkit {

namespace {

int Halves(std::string_view character)
{
    return character.size() == 4 ? 2 : 1;
}

/// Then no character has two halves.
bool HasSingleBytes(const TEditableText& edit)
{
    return static_cast<int>(edit.GetText().size()) == edit.CharCount();
}

}  // namespace

int QtPlace(const TEditableText& edit, int index)
{
    index = std::min(index, edit.CharCount());
    if (HasSingleBytes(edit))
        return index;
    int place = 0;
    for (int i = 0; i < index; ++i)
        place += Halves(edit.CharAt(i));
    return place;
}

int CharPlace(const TEditableText& edit, int qtPlace)
{
    const int count = edit.CharCount();
    if (HasSingleBytes(edit))
        return std::clamp(qtPlace, 0, count);
    int index = 0;
    for (int place = 0; place < qtPlace && index < count; ++index)
        place += Halves(edit.CharAt(index));
    return index;
}

QString QtText(const TEditableText& edit, int from, int to)
{
    QString text;
    for (int i = std::max(from, 0); i < std::min(to, edit.CharCount()); ++i) {
        const std::string_view character = edit.CharAt(i);
        text += QString::fromUtf8(character.data(), static_cast<qsizetype>(character.size()));
    }
    return text;
}

QString QtText(const TEditableText& edit)
{
    return QtText(edit, 0, edit.CharCount());
}

}  // namespace plotkit
