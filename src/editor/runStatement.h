#pragma once

class ResultPaging;
struct WindowControls;

/// Runs the selected text, or the whole text when nothing is selected, having written it to the
/// history. The visible tab decides how: its rows are shown, its plan, or what it writes to the
/// server's output.
/// @throws RuntimeError the history file's, the server's, 6 for a time that is too long
void runStatement(WindowControls &controls, ResultPaging &paging);
