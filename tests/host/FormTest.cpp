#include <gtest/gtest.h>

#include "host/Form.h"
#include "host/Panel.h"
#include "host/Streaming.h"

namespace plotkit {
namespace {

/// Writes down the moments at which windows are made.
class TWatchedPanel : public TPanel
{
public:
    TWatchedPanel(TComponent* owner, std::string& log) : TPanel(owner), FLog(log) {}

protected:
    void CreateWindow() override
    {
        FLog += GetName() + (Parent() && Parent()->HasWindow() ? "+ " : "- ");
        TPanel::CreateWindow();
    }

private:
    std::string& FLog;
};

TEST(Form, MakesWindowsOnceParentsFirst)
{
    std::string log;
    TForm form(nullptr);
    TWatchedPanel outer(nullptr, log), inner(nullptr, log);
    inner.SetName("Inner");
    outer.SetName("Outer");
    inner.SetParent(&outer);
    inner.WindowNeeded();
    EXPECT_EQ(log, "");  // nothing that leads to a root
    outer.SetLoading();
    outer.SetParent(&form);
    form.Show();
    inner.WindowNeeded();
    EXPECT_EQ(log, "");
    outer.Loaded();
    inner.SetParent(&form);
    form.Hide();
    form.Show();
    TWatchedPanel late(&form, log), top(nullptr, log);
    late.SetParent(&inner);
    top.Picture();
    EXPECT_EQ(log, "Outer+ Inner+ + - ");
}

TEST(Form, KeepsItsNormalBoundsInOtherStates)
{
    TForm form(nullptr);
    form.SetName("Form1");
    form.SetBounds(10, 20, 300, 200);
    const TRect normal = form.Bounds();
    form.SetWindowState(wsMaximized);
    EXPECT_EQ(form.Bounds(), Host().ScreenRect());

    TReadResult result = ReadComponentTree(WriteComponentTree(form), HostClasses());
    const std::unique_ptr<TComponent> read(result.Root);
    auto* copy = dynamic_cast<TForm*>(read.get());
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->GetWindowState(), wsMaximized);
    EXPECT_EQ(copy->NormalBounds(), normal);

    form.SetWindowState(wsMinimized);
    EXPECT_EQ(form.NormalBounds(), normal);
    form.SetNormalLeft(40);
    form.SetPixelScale(2);
    form.SetWindowState(wsNormal);
    EXPECT_EQ(form.Bounds(), (TRect{80, 40, 680, 440}));
}

}  // namespace
}  // namespace plotkit
