// What one environment component and the objects that it hands out know together.
#pragma once

#include "components/environment/CommandLine.h"
#include "components/environment/HostDataClient.h"

#include <memory>
#include <string>

namespace tollvane::environment {

constexpr const char* kSource = "prjHabitat";

// The numbers of this component's own errors: hex 80040000 plus the value.
enum class Failure : std::uint32_t {
    badCommandLine = 3101,
    unknownObjectKind = 3102,
    noHostDataServer = 3103,
};

[[noreturn]] void raise(Failure failure, const std::string& description);

struct Session {
    std::wstring token; // empty: nobody is signed in
    std::wstring userName;
    std::wstring first;
    std::wstring last;
};

class EnvironmentState {
public:
    EnvironmentState() = default;
    EnvironmentState(const EnvironmentState&) = delete;
    EnvironmentState& operator=(const EnvironmentState&) = delete;
    // Signs out.
    ~EnvironmentState();

    void setCommandLine(CommandLine line) { commandLine_ = std::move(line); }
    [[nodiscard]] std::wstring dcServer() const;
    [[nodiscard]] std::wstring dataPath() const;
    [[nodiscard]] std::wstring location() const;
    [[nodiscard]] std::wstring loginName() const { return commandLine_.user.value_or(L""); }

    // Another server ends the session; null is allowed. What offeredServer() answered is no other
    // one.
    void setServer(com::ComPtr<IDispatch> server);
    // The server as clients are to use it (see fronted()); null when there is none.
    [[nodiscard]] com::ComPtr<IDispatch> offeredServer();
    // Raises noHostDataServer when there is none.
    [[nodiscard]] HostDataClient hostData() const;

    // Keeps the session when the sign-in succeeded.
    SignInAnswer signIn(const std::wstring& userName, const Password& password);
    void signOut() noexcept;
    [[nodiscard]] const Session& session() const noexcept { return session_; }
    [[nodiscard]] bool hasPrivilege(LONG number) const;

private:
    CommandLine commandLine_;
    com::ComPtr<IDispatch> server_;
    com::ComPtr<IDispatch> offered_; // null: the server has not been asked yet
    Session session_;
};

using SharedState = std::shared_ptr<EnvironmentState>;

} // namespace tollvane::environment
