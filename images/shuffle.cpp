#include "images/shuffle.h"

#include "model/numbers.h"

#include <chrono>
#include <cmath>
#include <random>
#include <vector>

double ClockSeededRandom() {
    static quint64 previous = 0;
    const auto now = std::chrono::high_resolution_clock::now().time_since_epoch().count();
    std::mt19937_64 generator(static_cast<quint64>(now) ^ (previous * 0x9E3779B97F4A7C15ull));
    previous = generator();
    return std::generate_canonical<double, 53>(generator) * (1.0 - 1e-16);
}

qint16 ShufflePanes(Project& project, qint16 gridSide, int boardIndex, const RandomSource& random) {
    const qint16 n = Mul16(gridSide, gridSide);
    const qint16 base = Mul16(boardIndex, n);
    std::vector<qint16> left; // the cells not drawn yet, in order
    for (qint16 i = 1; i <= n; ++i)
        left.push_back(i);
    for (int j = 1; j <= n; ++j) {
        const int remaining = static_cast<int>(left.size());
        // 1 <= r <= remaining for any draw in [0, 1).
        const int r = qBound(1, static_cast<int>(std::floor(remaining * random() + 1)), remaining);
        project.DialogReply[j] = Str(base + left[static_cast<size_t>(r - 1)]);
        left.erase(left.begin() + (r - 1));
    }
    return base;
}

void MoveShuffledPictures(Project& project, qint16 base, qint16 n) {
    // The board's pictures as they were, indexed by pane number from base on.
    std::vector<Pane> before;
    for (int p = base; p <= base + n; ++p)
        before.push_back(project.Panes(p));
    for (int i = 1; i <= n; ++i) {
        const Pane& from = before[static_cast<size_t>(CInt(project.DialogReply[i]) - base)];
        Pane& to = project.Panes(base + i);
        to.ImageFile = from.ImageFile;
        to.SourceFile = from.SourceFile;
        to.FlipHorizontal = from.FlipHorizontal;
        to.FlipVertical = from.FlipVertical;
        to.SourceStem = from.SourceStem;
    }
}
