#pragma once

namespace korvane {

/// Teaches the toolkit what our controls are to assistive technology, where it cannot tell by itself.
/// Needed once, before the first of them is made.
void installSettingsAccess();

} // namespace korvane
