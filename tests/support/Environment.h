#pragma once

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace korvane::test {

/// Sets environment variables, and puts back what was there before.
class Environment {
public:
    explicit Environment(const std::map<std::string, std::string>& variables)
    {
        for (const auto& [name, value] : variables) {
            const char* const before = std::getenv(name.c_str());
            m_before[name] = before ? std::optional<std::string>(before) : std::nullopt;
            ::setenv(name.c_str(), value.c_str(), 1);
        }
    }
    ~Environment()
    {
        for (const auto& [name, value] : m_before) {
            if (value)
                ::setenv(name.c_str(), value->c_str(), 1);
            else
                ::unsetenv(name.c_str());
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    std::map<std::string, std::optional<std::string>> m_before;
};

} // namespace korvane::test
