// The job of LiveCases is what only Plotkit is asked for: curves sampled anew while one zooms, the cursor over ten
// million points, and many panels that run at once.
#pragma once

namespace bench {

void RegisterLiveCases();

}  // namespace bench
