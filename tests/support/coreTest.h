#pragma once

/// What every test of the core includes.

#include "dataaccess/Connection.h"
#include "platform/process.h"
#include "platform/settings.h"
#include "platform/systemClock.h"
#include "support/DataRows.h"
#include "support/SandboxFixture.h"
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

using namespace Qt::StringLiterals;
