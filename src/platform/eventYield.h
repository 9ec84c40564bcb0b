#pragma once

/// Lets the user interface process what has arrived. Made to be called after every row of a long
/// run, for some 50 nanoseconds on average where asking the window system each time would cost
/// twenty times that.
///
/// What the program itself has posted (queued calls, layout requests) is handled in every call.
/// Input, timers and painting come from the window system and are asked for when a millisecond has
/// passed since it was last done: in every call where a row takes that long, and otherwise sooner
/// than anybody can press a button.
void yieldToEvents();
