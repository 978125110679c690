// One undo step on the largest layout (32,767 lines): recording it (a copy of
// the document before, the changed rows kept after) and undoing it, for a
// move of one line and for Delete All.
#include <benchmark/benchmark.h>

#include "board/core/UndoHistory.h"
#include "board/core/Viewport.h"

namespace {

Layout::LayoutDocument Largest() {
    Layout::LayoutDocument doc;
    Viewport::Set_Viewport(doc);
    for (int i = 0; i < 32767; ++i)
        Viewport::Add_Drawn_Line(doc, {1.0f, 0.5f + 0.0001f * static_cast<float>(i)},
                                 {3.0f, 0.5f + 0.0001f * static_cast<float>(i)});
    return doc;
}

template <class Edit>
void RecordAndUndo(benchmark::State& st, Edit edit) {
    Layout::LayoutDocument doc = Largest();
    Undo::History h;
    for (auto _ : st) {
        h.Begin(doc);
        edit(doc);
        h.Commit(doc, "Step");
        h.Undo(doc);
    }
    st.counters["history_KiB"] = static_cast<double>(h.Bytes()) / 1024;
}

void BM_MoveOneLine(benchmark::State& st) {
    RecordAndUndo(st, [](Layout::LayoutDocument& d) { d.Lines[16000].MidPt.X += 1; });
}
BENCHMARK(BM_MoveOneLine)->Unit(benchmark::kMillisecond);

void BM_DeleteAll(benchmark::State& st) {
    RecordAndUndo(st, [](Layout::LayoutDocument& d) { d.Lines = Layout::BlankLines(); });
}
BENCHMARK(BM_DeleteAll)->Unit(benchmark::kMillisecond);

}  // namespace
