#pragma once

#include "cli/memory_plan.h"
#include "cli/memory_transaction.h"
#include "cli/output.h"

#include <QJsonArray>
#include <QJsonObject>

#include <vector>

namespace orbkl4::cli {

/// `changes` as a table and as JSON: address, name, old and new number.
Table Listing(const std::vector<WordChange>& changes);
QJsonArray Described(const std::vector<WordChange>& changes);

/// `results` likewise, each with the number that was read back.
Table Listing(const std::vector<WordResult>& results);
QJsonArray Described(const std::vector<WordResult>& results);

}  // namespace orbkl4::cli
