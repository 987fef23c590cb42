#include "platform/ChoiceNative.h"

void Ostrel::Detail::dressChoice(wxChoice&, const wxColour&, const wxColour&, const wxColour&) {}
