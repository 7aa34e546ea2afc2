// The job of KxSort is to sort abscissae and to carry ordinates and weights along.
#pragma once

#include "foundation/KxConsts.h"

namespace plotkit {

/// Sorts X[L..R] ascending and exchanges the elements of Y alike; nothing for R <= L. Where all abscissae differ, the
/// method does not matter; where some repeat, Y stands as Hoare's exchanges around the middle element leave it (not
/// stable), so that whoever merges repeated abscissae one after the other gets the same value every time. Arrays that
/// are in order already are only read. ERangeError when L..R is not within the arrays.
void QuickSortYtoX(int L, int R, TKxRealArray& X, TKxRealArray& Y);
/// The same with weights.
void QuickSortYWtoX(int L, int R, TKxRealArray& X, TKxRealArray& Y, TKxRealArray& W);

}  // namespace plotkit
