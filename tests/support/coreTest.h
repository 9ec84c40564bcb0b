#pragma once

/// What every test of the core includes.

#include "support/DataRows.h"
#include "support/raisedError.h"
#include "support/tables.h"
#include "support/testFiles.h"
#include "support/textRows.h"

#include <QtTest>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <utility>
