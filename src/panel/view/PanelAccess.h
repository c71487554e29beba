#pragma once

namespace korvane {

/// Teaches the toolkit to show assistive technology what the panel's views paint themselves: rows,
/// tabs, totals and announcements. Needed once, before the first of them is made; done again it
/// changes nothing. Until somebody listens, no element is made.
void installPanelAccess();

} // namespace korvane
