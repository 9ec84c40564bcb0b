#pragma once

/// Lets the user interface process what has arrived: input, timers, painting. Cheap enough to be
/// called after every row of a long run.
void yieldToEvents();
