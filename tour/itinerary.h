#pragma once

#include <QString>

namespace orbkl4::tour {

class Guide;

/// Connects to the sensor; false where it isn't found.
bool VisitConnect(Guide& guide);

/// Visits every live view: takes pictures of it stopped and running, and saves what it samples into
/// `dataFolder`.
void VisitViews(Guide& guide, const QString& dataFolder);

/// Visits every other screen.
void VisitTools(Guide& guide);

}  // namespace orbkl4::tour
