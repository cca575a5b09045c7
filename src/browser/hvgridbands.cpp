#include "hvgridbands.h"

#include "layout/hviconlayout.h"

#include <algorithm>

void HVGridBands::build(const HVIconLayout& layout)
{
    m_columns.clear();
    m_rows.clear();
    const HVLookupTable& table = layout.lookupTable();
    if (table.rows() < 1 || table.cols() < 1)
        return;
    for (int column = 0; column < table.cols(); ++column) {
        const QRectF& rect = table.at(0, column).rect;
        m_columns.push_back({rect.left(), rect.right()});
    }
    for (int row = 0; row < table.rows(); ++row) {
        const QRectF& rect = table.at(row, 0).rect;
        m_rows.push_back({rect.top(), rect.bottom()});
    }
}

std::pair<int, int> HVGridBands::overlapping(const std::vector<Band>& bands, double start, double end)
{
    // Bands run in order and do not overlap: their starts and ends both rise.
    const auto first = std::upper_bound(bands.begin(), bands.end(), start,
                                        [](double value, const Band& band) { return value < band.end; });
    const auto last = std::lower_bound(first, bands.end(), end,
                                       [](const Band& band, double value) { return band.start < value; });
    return {int(first - bands.begin()), int(last - bands.begin())};
}

void HVGridBands::cellsMeeting(const QRegion& region, std::vector<char>& cells) const
{
    const std::size_t columns = m_columns.size();
    cells.assign(columns * m_rows.size(), 0);
    for (const QRect& rect : region) {
        const double right = rect.x() + double(rect.width());
        const double bottom = rect.y() + double(rect.height());
        const auto [firstColumn, endColumn] = overlapping(m_columns, rect.x(), right);
        const auto [firstRow, endRow] = overlapping(m_rows, rect.y(), bottom);
        for (int row = firstRow; row < endRow; ++row)
            std::fill_n(cells.begin() + std::ptrdiff_t(row * columns + firstColumn),
                        std::max(0, endColumn - firstColumn), char(1));
    }
}
