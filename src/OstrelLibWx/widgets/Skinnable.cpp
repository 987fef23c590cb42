#include <OstrelLibWx/widgets/Skinnable.h>

namespace Ostrel::Wx {

ISkinnable::~ISkinnable() = default;

ILinkColours::~ILinkColours() = default;

} // namespace Ostrel::Wx
