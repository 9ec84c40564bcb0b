#pragma once

class FrameCommands;
class QMenuBar;

/// Puts the frame's menus and items into @p menuBar, each under its own object name, and leads
/// them to @p commands, which has to be there for as long as an item can be chosen.
void createFrameMenus(QMenuBar &menuBar, FrameCommands &commands);
