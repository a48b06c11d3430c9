#include "components/environment/EnvironmentState.h"

#include "components/common/ComFailure.h"
#include "components/environment/EnvironmentSettings.h"
#include "components/environment/HostDataFront.h"

namespace tollvane::environment {

namespace {

// The host data server's number for "nobody is signed in": the session has ended there, because
// the operator was disabled or the server was started anew.
constexpr std::uint32_t kNotSignedIn = com::applicationErrorBase + 3020;

} // namespace

void raise(Failure failure, const std::string& description) {
    throw com::ComponentError(com::applicationErrorBase + static_cast<std::uint32_t>(failure),
                              kSource, description);
}

EnvironmentState::~EnvironmentState() {
    signOut();
}

std::wstring EnvironmentState::dcServer() const {
    return commandLine_.server ? *commandLine_.server : readSetting(L"Server");
}

std::wstring EnvironmentState::dataPath() const {
    if (commandLine_.data)
        return *commandLine_.data;
    std::wstring path = readSetting(L"Data Path");
    if (path.empty() && server_)
        path = hostData().dataPath();
    return path.empty() ? defaultDataPath() : path;
}

std::wstring EnvironmentState::location() const {
    if (commandLine_.location)
        return *commandLine_.location;
    std::wstring location = readSetting(L"Location");
    if (location.empty() && server_)
        location = hostData().location();
    return location.empty() ? computerName() : location;
}

void EnvironmentState::setServer(com::ComPtr<IDispatch> server) {
    const bool same = server.get() == server_.get() || (server && server.get() == offered_.get());
    if (same)
        return;
    signOut();
    offered_.reset();
    server_ = std::move(server);
}

com::ComPtr<IDispatch> EnvironmentState::offeredServer() {
    if (server_ && !offered_) {
        try {
            offered_ = fronted(server_.get());
        } catch (const com::ComponentError&) {
            // Its client is told by its own calls what is wrong with it.
            return com::ComPtr<IDispatch>::share(server_.get());
        }
    }
    return com::ComPtr<IDispatch>::share(offered_.get());
}

HostDataClient EnvironmentState::hostData() const {
    if (!server_)
        raise(Failure::noHostDataServer, "The host data server has not been connected.");
    return HostDataClient(com::ComPtr<IDispatch>::share(server_.get()));
}

SignInAnswer EnvironmentState::signIn(const std::wstring& userName, const Password& password) {
    SignInAnswer answer = hostData().signIn(userName, password);
    if (answer.succeeded) {
        signOut();
        session_ = {answer.token, answer.userName, answer.first, answer.last};
    }
    return answer;
}

void EnvironmentState::signOut() noexcept {
    try {
        if (!session_.token.empty() && server_)
            hostData().signOut(session_.token);
    } catch (...) {
        // A server that is gone has forgotten the session by itself.
        session_.token.clear();
    }
    session_ = {};
}

bool EnvironmentState::hasPrivilege(LONG number) const {
    if (session_.token.empty())
        return false;
    try {
        return hostData().hasPrivilege(session_.token, number);
    } catch (const com::ComponentError& error) {
        if (error.number() == kNotSignedIn)
            return false;
        throw;
    }
}

} // namespace tollvane::environment
