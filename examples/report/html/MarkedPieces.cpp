#include "report/html/MarkedPieces.h"

#include "source/SortByOffset.h"

#include <algorithm>

namespace ostrel::report {

namespace {

/// Where the number of errors or remarks that cover the text changes.
struct Change {
    std::size_t offset;
    bool isError;
    int by;
};

struct Found {
    std::vector<Change> changes;
    std::vector<MarkedPiece> pieces;
};

void add(Found& found, const Place& place, bool isError) {
    const std::size_t end = place.offset + place.length;
    if (place.length == 0) {
        found.pieces.push_back({place.offset, end, isError});
        return;
    }
    found.changes.push_back({place.offset, isError, +1});
    found.changes.push_back({end, isError, -1});
}

/// Adds the pieces between the changes.
void sweep(Found& found) {
    std::sort(found.changes.begin(), found.changes.end(),
              [](const Change& a, const Change& b) { return a.offset < b.offset; });
    int errors = 0;
    int remarks = 0;
    std::size_t from = 0;
    for (const Change& change : found.changes) {
        if (change.offset > from && errors + remarks > 0)
            found.pieces.push_back({from, change.offset, errors > 0});
        from = change.offset;
        (change.isError ? errors : remarks) += change.by;
    }
}

} // namespace

std::vector<MarkedPiece> findMarkedPieces(const File& file) {
    Found found;
    for (const Diagnostic& diagnostic : file.diagnostics)
        add(found, diagnostic.place, true);
    for (const Remark& remark : file.remarks)
        add(found, remark.place, false);
    sweep(found);
    sortByOffset(found.pieces, [](const MarkedPiece& piece) { return piece.offset; });
    return found.pieces;
}

} // namespace ostrel::report
