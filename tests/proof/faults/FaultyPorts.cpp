#include "tests/proof/faults/FaultyPorts.h"

#include "platform/Error.h"

namespace tollvane::test {

namespace {

constexpr std::string_view kSettings = "Software\\Norrow Programs\\Tollvane";

/// A key below the settings' own, as records show it.
std::string shortKey(const char* subKey) {
    const std::string key(subKey);
    return key.starts_with(kSettings) ? key.substr(kSettings.size()) : key;
}

[[noreturn]] void raise(const Mode& mode, std::string_view source) {
    throw Error(mode.number, std::string(source), mode.description);
}

} // namespace

const Mode* FaultyRegistry::strike(const std::string& name) {
    return sabotage_.strike(Callee::registry, name, key_);
}

long FaultyRegistry::fail(const Mode& mode) {
    sabotage_.systemTextsAreMissing = mode.how == Mode::How::noText;
    return mode.number;
}

long FaultyRegistry::openKeyEx(RegistryKey root, const char* subKey, std::uint32_t options,
                               std::uint32_t access, RegistryKey* key) {
    key_ = shortKey(subKey);
    if (const Mode* mode = strike("openKeyEx")) {
        return fail(*mode);
    }
    return inner_.openKeyEx(root, subKey, options, access, key);
}

long FaultyRegistry::createKeyEx(RegistryKey root, const char* subKey, std::uint32_t reserved,
                                 const char* className, std::uint32_t options, std::uint32_t access,
                                 void* security, RegistryKey* key, std::uint32_t* disposition) {
    key_ = shortKey(subKey);
    if (const Mode* mode = strike("createKeyEx")) {
        return fail(*mode);
    }
    return inner_.createKeyEx(root, subKey, reserved, className, options, access, security, key,
                              disposition);
}

long FaultyRegistry::queryValueEx(RegistryKey key, const char* name, std::uint32_t* reserved,
                                  std::uint32_t* type, std::uint8_t* data, std::uint32_t* size) {
    const Mode* mode = strike("queryValueEx");
    sabotage_.nameSetting(name);
    if (mode == nullptr) {
        return inner_.queryValueEx(key, name, reserved, type, data, size);
    }
    if (mode->how != Mode::How::type && mode->how != Mode::How::empty) {
        return fail(*mode);
    }
    *type = static_cast<std::uint32_t>(mode->number);
    *size = mode->how == Mode::How::empty ? 0 : 4;
    for (std::uint32_t i = 0; i < *size; ++i) {
        data[i] = static_cast<std::uint8_t>('1' + i);
    }
    return registry::success;
}

long FaultyRegistry::setValueEx(RegistryKey key, const char* name, std::uint32_t reserved,
                                std::uint32_t type, const std::uint8_t* data, std::uint32_t size) {
    const Mode* mode = strike("setValueEx");
    sabotage_.nameSetting(name);
    return mode != nullptr ? fail(*mode) : inner_.setValueEx(key, name, reserved, type, data, size);
}

long FaultyRegistry::closeKey(RegistryKey key) {
    const Mode* mode = strike("closeKey");
    const long status = inner_.closeKey(key); // a close that fails still ends the handle
    return mode != nullptr ? fail(*mode) : status;
}

std::uint32_t FaultyRegistry::formatMessage(std::uint32_t flags, const void* source,
                                            std::uint32_t code, std::uint32_t language,
                                            char* buffer, std::uint32_t size, void* arguments) {
    return sabotage_.systemTextsAreMissing
               ? 0
               : inner_.formatMessage(flags, source, code, language, buffer, size, arguments);
}

std::uint32_t FaultyFiles::probeForReading(const std::string& path) {
    const Mode* mode = sabotage_.strike(Callee::files, "probeForReading");
    return mode != nullptr ? static_cast<std::uint32_t>(mode->number)
                           : inner_.probeForReading(path);
}

std::string FaultyFiles::profileString(const std::string& section, const std::string& key,
                                       const std::string& fallback, std::uint32_t bufferSize,
                                       const std::string& file) {
    const Mode* mode = sabotage_.strike(Callee::files, "profileString");
    return mode != nullptr ? std::get<std::string>(mode->answer)
                           : inner_.profileString(section, key, fallback, bufferSize, file);
}

std::uint32_t FaultyFiles::startProcess(const std::string& commandLine, bool inheritHandles,
                                        std::uint32_t creationFlags) {
    const Mode* mode = sabotage_.strike(Callee::files, "startProcess");
    return mode != nullptr ? static_cast<std::uint32_t>(mode->number)
                           : inner_.startProcess(commandLine, inheritHandles, creationFlags);
}

std::int32_t FaultyShell::execute(WindowNumber owner, const std::string& verb,
                                  const std::string& file, const std::string& parameters,
                                  const std::string& folder, int showCommand) {
    const Mode* mode = sabotage_.strike(Callee::shell, "execute");
    return mode != nullptr ? static_cast<std::int32_t>(mode->number)
                           : inner_.execute(owner, verb, file, parameters, folder, showCommand);
}

std::int32_t FaultyShell::findProgram(const std::string& file, const std::string& folder,
                                      std::string& program) {
    if (const Mode* mode = sabotage_.strike(Callee::shell, "findProgram")) {
        program.clear();
        return static_cast<std::int32_t>(mode->number);
    }
    return inner_.findProgram(file, folder, program);
}

bool FaultyShell::helpContents(WindowNumber owner, const std::string& helpFile) {
    return sabotage_.strike(Callee::shell, "helpContents") == nullptr &&
           inner_.helpContents(owner, helpFile);
}

bool FaultyShell::helpTopic(WindowNumber owner, const std::string& helpFile, long topic) {
    return sabotage_.strike(Callee::shell, "helpTopic") == nullptr &&
           inner_.helpTopic(owner, helpFile, topic);
}

int FaultyLocale::info(std::uint32_t locale, std::uint32_t item, char* buffer, int size) {
    const std::string name = "info " + std::to_string(item) + (size == 0 ? " size" : "");
    const Mode* mode = sabotage_.strike(Callee::locale, name);
    return mode != nullptr ? 0 : inner_.info(locale, item, buffer, size);
}

bool FaultyProgram::anotherInstanceRuns() {
    const bool runs = inner_.anotherInstanceRuns();
    return sabotage_.strike(Callee::program, "anotherInstanceRuns") != nullptr || runs;
}

std::string FaultyProgram::resourceString(unsigned id) {
    if (const Mode* mode = sabotage_.strike(Callee::program, "resourceString")) {
        raise(*mode, "Tollvane");
    }
    return inner_.resourceString(id);
}

MessageAnswer FaultyBoxes::show(const Message& message) {
    if (const Mode* mode = sabotage_.strike(Callee::boxes, "show")) {
        raise(*mode, "MessageBox");
    }
    if (message.buttons == MessageButtons::yesNo) {
        inner_.answer(answer);
    }
    return inner_.show(message);
}

std::unique_ptr<Form> FaultyForms::create(const FormDescription& description) {
    if (const Mode* mode =
            sabotage_.strike(Callee::forms, "create " + std::string(description.name))) {
        raise(*mode, description.name);
    }
    return inner_.create(description);
}

FaultyPorts::FaultyPorts(TestDesktop& desktop, Sabotage& sabotage)
    : registry(desktop.registry, unused, sabotage), automation(desktop.automation, sabotage),
      files(desktop.files, unused, sabotage), shell(desktop.shell, sabotage),
      locale(desktop.locale, sabotage), program(desktop.program, sabotage),
      printers(desktop.printers, sabotage), boxes(desktop.boxes, sabotage),
      forms(*desktop.forms, sabotage) {
    desktop.use(static_cast<Registry&>(registry));
    desktop.use(automation);
    desktop.use(static_cast<Files&>(files));
    desktop.use(shell);
    desktop.use(locale);
    desktop.use(program);
    desktop.use(printers);
    desktop.use(static_cast<MessageBoxes&>(boxes));
    desktop.use(forms);
}

} // namespace tollvane::test
