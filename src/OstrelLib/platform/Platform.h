#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>

#include <cstddef>

/// What the core library needs of the system. Each function is implemented once per system, in the folder of its
/// name, and does what the public function of the same name promises.
namespace Ostrel::Platform {

bool isMainThread();
bool runSingleEventLoopIteration(bool processOnlyWaiting);
float getFontScale();
wchar_t decimalPointCharacter();

/// The bytes of a page that the system uses instead of many small ones when it is asked to; 0 if it does not.
std::size_t getLargePageSize() noexcept;

/// Asks for such pages. `memory` begins one.
void useLargePages(void* memory, std::size_t byteCount) noexcept;

/// `address` is not null: some systems take that for a request for the program itself.
void* getModuleHandleFromAddress(const void* address) noexcept;

/// Disables the top-level window of `window`, which is not null; the result's destructor enables it again. Null when
/// there was nothing to disable.
AutoPtr<Polymorphic> disableWindow(WindowHandle window);

} // namespace Ostrel::Platform
