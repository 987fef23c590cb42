#include <benchmark/benchmark.h>
#include <wx/dcmemory.h>

#include "LibraryUp.h"
#include "painting/ButtonPainting.h"

namespace {

/// A button of a message dialog's size with a bitmap and a label, painted off screen as its window paints it.
void paintButton(benchmark::State& state) {
    const LibraryUp library;
    const wxSize size(80, 24);
    wxBitmap target(size.x, size.y, 24);
    wxMemoryDC dc(target);
    const wxString label = "Cancel";
    const wxBitmap bitmap(wxImage(16, 16));
    const Ostrel::Wx::ButtonPicture picture{.size = size,
                                            .border = Ostrel::RawaBorderState::ENABLED,
                                            .background = wxColour(68, 68, 68),
                                            .foreground = wxColour(200, 200, 200),
                                            .bitmap = bitmap,
                                            .label = label,
                                            .labelExtent = dc.GetTextExtent(label),
                                            .labelGreyed = false,
                                            .designPixel = 1};
    for (auto _ : state) {
        Ostrel::Wx::paintButton(dc, picture);
    }
}
BENCHMARK(paintButton);

} // namespace
