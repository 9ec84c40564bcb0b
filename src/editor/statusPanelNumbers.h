#pragma once

/// What the panels of `sbSql` show.
enum StatusPanelNumber {
    CaretPanel = 1,
    InformationPanel = 2,
    ElapsedPanel = 3,
    RowsPanel = 4,
    ExecutionPanel = 5
};
