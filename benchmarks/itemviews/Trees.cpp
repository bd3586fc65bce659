// SPDX-License-Identifier: MIT
#include "Trees.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace {

constexpr int s_texts = 1000;

std::vector<QString> makeTexts()
{
    std::vector<QString> texts;
    for (int i = 0; i < s_texts; ++i)
        texts.push_back(QStringLiteral("step %1").arg(i * 7919 % s_texts));
    return texts;
}

} // namespace

const QString &text(int row, int column)
{
    static const std::vector<QString> s_list = makeTexts();
    return s_list[size_t((row * 31 + column * 17) % s_texts)];
}

std::vector<int> shuffledRows(int count)
{
    std::vector<int> rows(static_cast<size_t>(count));
    std::iota(rows.begin(), rows.end(), 0);
    std::shuffle(rows.begin(), rows.end(), std::mt19937(1));
    return rows;
}
