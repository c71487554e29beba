#pragma once

struct xcb_connection_t;

namespace korvane {

/// The toolkit's own connection to the X server; null where it runs on another platform.
xcb_connection_t* toolkitConnection();
/// Returns when the server has dealt with everything that the toolkit has asked of it so far.
void awaitToolkitRequests();

} // namespace korvane
