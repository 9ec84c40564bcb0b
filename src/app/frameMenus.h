#pragma once

class FrameCommands;
class QMenuBar;

/// Puts the frame's menus and items into @p menuBar, each under its own object name, and leads
/// them to @p commands, which must outlive the menu bar.
void createFrameMenus(QMenuBar &menuBar, FrameCommands &commands);
