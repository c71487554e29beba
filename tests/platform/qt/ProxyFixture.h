#pragma once

#include "platform/qt/FetcherFixture.h"
#include "support/Proxies.h"

#include <string>

namespace korvane::test {

// Of a name that nobody but a proxy can look up.
inline constexpr auto* secureAddress = "https://korvane.example/korvane/version.json";
inline constexpr auto* plainAddress = "http://korvane.example/korvane/version.json";

/// Who stands at these addresses.
inline const Certificate& ourName()
{
    static const Certificate certificate("DNS:korvane.example");
    return certificate;
}

/// While it lives, this proxy leads everywhere.
inline Environment proxyFor(const std::string& variable, const std::string& address)
{
    return Environment { { { "no_proxy", "" }, { variable, address } } };
}

} // namespace korvane::test
