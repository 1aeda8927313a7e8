#pragma once

#include "Results.h"

namespace bench {

// Sizes: up to a million rows and ten million slim ones, or a tenth and a hundredth of that.
void setQuick(bool quick);
bool isQuick();
inline int fullRows()
{
    return isQuick() ? 100'000 : 1'000'000;
}
inline int fullSlimRows()
{
    return isQuick() ? 100'000 : 10'000'000;
}
std::string sizeName(int rows);

// Register the works of a topic.
void addLoading();
void addPainting();
void addTrees();
void addSorting();
void addRowWork();

} // namespace bench
