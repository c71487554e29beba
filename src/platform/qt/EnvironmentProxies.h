#pragma once

#include <QNetworkProxy>

#include <optional>

class QUrl;

namespace korvane {

/// The proxy that the environment names for an address: "https_proxy", "http_proxy" and "all_proxy" tell it,
/// and "no_proxy" the hosts (with those below them) that are reached without one; "*" is all of them.
///
/// None: it names one of a kind that we do not speak to, as one that is to be reached by https. Who names
/// it does not want its password to be heard on the way, so it is not to be spoken to in another manner.
///
/// The toolkit's own answer would be asked of the desktop's settings, and may have to fetch a script
/// from a web server first, for which the whole program would wait.
std::optional<QNetworkProxy> environmentProxyFor(const QUrl& url);

} // namespace korvane
