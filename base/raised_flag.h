// A flag that says that something is going on: true for as long as this object exists, and then as it was, however the
// scope is left. What is thrown in between must not leave the flag's owner busy for ever.
#pragma once

#include <utility>

namespace qv {

class RaisedFlag {
public:
    explicit RaisedFlag(bool& flag) noexcept : m_flag(flag), m_before(std::exchange(flag, true)) {}
    ~RaisedFlag() { m_flag = m_before; }
    RaisedFlag(const RaisedFlag&) = delete;
    RaisedFlag& operator=(const RaisedFlag&) = delete;

private:
    bool& m_flag;
    bool m_before;
};

}  // namespace qv
