// The job of Streaming is to write a component tree as readable text and to build it again from such a text.
//
//     object MainForm: TForm
//       Width = 640
//       object Graph1: TKx2DGraph
//         FrameLine.Visible = True
//         PrimaryXAxis = XAxis1
//       end
//       object Times: TKxRealVector
//         Values = (0; 0.5; 1)
//       end
//     end
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/Component.h"

namespace plotkit {

/// Properties in table order, those that `IsStored` names; then the components inside, in order.
std::string WriteComponentTree(const TComponent& root);

/// One fault of a text that was read; lines count from 1.
struct TReadProblem
{
    int Line = 0;
    std::string Message;

    friend bool operator==(const TReadProblem&, const TReadProblem&) = default;
};

struct TReadResult
{
    /// The component at the top; nullptr when the text names no class that can be made. The caller owns it unless it
    /// was given an owner.
    TComponent* Root = nullptr;
    std::vector<TReadProblem> Problems;
};

/// Builds the tree. `classes` are all classes that may stand in the text. Unknown classes (with what stands in them),
/// unknown properties, bad values and references that lead nowhere are reported, all else is kept; references may point
/// forward; `Loaded` runs for every component at the end, inner ones first.
TReadResult ReadComponentTree(std::string_view text, std::span<const TClassInfo* const> classes,
                              TComponent* owner = nullptr);
/// The same into an existing root, whose class the text must name.
std::vector<TReadProblem> ReadIntoComponent(std::string_view text, std::span<const TClassInfo* const> classes,
                                            TComponent& root);

/// The creatable classes of this folder.
std::span<const TClassInfo* const> HostClasses();

}  // namespace plotkit
