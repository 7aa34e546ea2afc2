// Every form of the corpus gives the picture that is kept beside it, and the same one after it was saved and loaded.
// PLOTKIT_REWRITE_CORPUS=1 writes the kept files anew; the difference is then for a person to judge.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "host/Form.h"
#include "host/Streaming.h"
#include "host/StringList.h"
#include "support/AllClasses.h"
#include "support/PropertyWalk.h"

namespace plotkit {
namespace {

std::unique_ptr<TForm> ReadForm(const std::string& text)
{
    const TReadResult result = ReadComponentTree(text, AllClasses());
    for (const TReadProblem& problem : result.Problems)
        ADD_FAILURE() << "line " << problem.Line << ": " << problem.Message;
    return std::unique_ptr<TForm>(dynamic_cast<TForm*>(result.Root));
}

std::vector<std::filesystem::path> Forms()
{
    std::vector<std::filesystem::path> forms;
    for (const auto& entry : std::filesystem::directory_iterator(PLOTKIT_SOURCE_DIR "/tests/corpus"))
        if (entry.path().extension() == ".form")
            forms.push_back(entry.path());
    std::sort(forms.begin(), forms.end());
    return forms;
}

class TCorpus : public testing::TestWithParam<std::filesystem::path>
{
};

TEST_P(TCorpus, PictureIsTheKeptOne)
{
    std::filesystem::path kept = GetParam();
    kept.replace_extension(".txt");
    const auto form = ReadForm(ReadWholeFile(GetParam()));
    ASSERT_TRUE(form);
    const std::string saved = WriteComponentTree(*form);
    const std::string picture = form->Picture().ToText();
    if (std::getenv("PLOTKIT_REWRITE_CORPUS"))
        WriteWholeFile(kept, picture);
    ASSERT_TRUE(std::filesystem::exists(kept)) << "set PLOTKIT_REWRITE_CORPUS=1 to write it";
    EXPECT_EQ(picture, ReadWholeFile(kept));

    const auto again = ReadForm(saved);
    ASSERT_TRUE(again);
    EXPECT_EQ(WriteComponentTree(*again), saved);
    EXPECT_EQ(again->Picture().ToText(), picture);
}

TEST_P(TCorpus, PictureAtAnotherScaleAndBackIsTheSame)
{
    const auto form = ReadForm(ReadWholeFile(GetParam()));
    ASSERT_TRUE(form);
    const TRecording before = form->Picture();
    form->SetPixelScale(2.5);
    EXPECT_NE(form->Picture(), before);
    form->SetPixelScale(1);
    EXPECT_EQ(form->Picture().ToText(), before.ToText());
}

TEST(Properties, EveryRowOfEveryClass)
{
    WalkProperties(AllClasses());
}

INSTANTIATE_TEST_SUITE_P(Forms, TCorpus, testing::ValuesIn(Forms()),
                         [](const auto& form) { return form.param.stem().string(); });

}  // namespace
}  // namespace plotkit
