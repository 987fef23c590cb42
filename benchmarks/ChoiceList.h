#pragma once

class wxChoice;

/// Opens the list of the toolkit's choice, which has no call of its own for that, and has it painted at once; closes
/// it.
void openChoiceList(wxChoice& choice);
void closeChoiceList(wxChoice& choice);
