#include <gtest/gtest.h>

#include "calculated/KxSimplexFit.h"
#include "formula/KxFormula.h"
#include "support/NistSet.h"

using namespace plotkit;

TEST(Nist, MostSetsAreFittedFromTheNearerStart)
{
    int fitted = 0;
    for (const TNistSet& set : NistSets(PLOTKIT_SOURCE_DIR "/data/nist-strd")) {
        const TKxTypedFormula formula = CompileFormula(set.Formula);
        ASSERT_EQ(formula.Coefficients.size(), set.Certified.size()) << set.Name;
        TKxSimplexFit fit(TKxMisfit(formula.Function, {set.X, set.Y, {}}), set.Starts[1]);
        for (int i = 0; i <= 3000; ++i)
            fit.Step();
        fitted += set.Digits(fit.Best()) >= 6;
        EXPECT_GE(set.Digits(fit.Best()), set.Name == "DanWood" ? 8 : 0);
    }
    EXPECT_GE(fitted, 18);
}
