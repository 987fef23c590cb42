#include <OstrelLib/Types.h>

namespace Ostrel {

Polymorphic::~Polymorphic() = default;

Object::~Object() = default;

} // namespace Ostrel
