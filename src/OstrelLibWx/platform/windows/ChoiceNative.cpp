#include "platform/ChoiceNative.h"

#include <wx/choice.h>

#include <windows.h>

#include <uxtheme.h>

void Ostrel::Detail::dressChoice(wxChoice& choice, const wxColour&, const wxColour&, const wxColour&) {
    SetWindowTheme(static_cast<HWND>(choice.GetHandle()), L"", L""); // a theme would cover the toolkit's colours
}
