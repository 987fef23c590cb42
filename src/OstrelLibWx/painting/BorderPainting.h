#pragma once

#include <OstrelLib/Flags.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLibWx/widgets/RawaBorderState.h>

class wxDC;

namespace Ostrel {

/// Draws the frame of the skinned controls: outlines only, what is inside stays. `rectangle` is to begin at the origin,
/// as the controls' do (see the source for what happens otherwise). Leaves its pen and brush in the device context.
void paintBorder(wxDC& dc, const Bucket& rectangle, Flags<RawaBorderState> state);

} // namespace Ostrel
