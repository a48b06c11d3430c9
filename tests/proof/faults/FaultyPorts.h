#pragma once

#include "tests/desktop/TestDesktop.h"
#include "tests/proof/faults/FaultyObject.h"
#include "tests/proof/faults/Sabotage.h"

#include <memory>
#include <string>

namespace tollvane::test {

/// The registry, failing by plan. Calls are told apart by key and value; what the program never
/// calls is left to an empty registry of its own.
class FaultyRegistry : public FakeRegistry {
public:
    FaultyRegistry(FakeRegistry& inner, FaultPlan& unused, Sabotage& sabotage)
        : FakeRegistry(unused), inner_(inner), sabotage_(sabotage) {}

    long openKeyEx(RegistryKey root, const char* subKey, std::uint32_t options,
                   std::uint32_t access, RegistryKey* key) override;
    long createKeyEx(RegistryKey root, const char* subKey, std::uint32_t reserved,
                     const char* className, std::uint32_t options, std::uint32_t access,
                     void* security, RegistryKey* key, std::uint32_t* disposition) override;
    long queryValueEx(RegistryKey key, const char* name, std::uint32_t* reserved,
                      std::uint32_t* type, std::uint8_t* data, std::uint32_t* size) override;
    long setValueEx(RegistryKey key, const char* name, std::uint32_t reserved, std::uint32_t type,
                    const std::uint8_t* data, std::uint32_t size) override;
    long closeKey(RegistryKey key) override;
    std::uint32_t formatMessage(std::uint32_t flags, const void* source, std::uint32_t code,
                                std::uint32_t language, char* buffer, std::uint32_t size,
                                void* arguments) override;
    std::uint32_t lastError() override { return inner_.lastError(); }

private:
    const Mode* strike(const std::string& name);
    /// The answer of a failing call.
    long fail(const Mode& mode);

    FakeRegistry& inner_;
    Sabotage& sabotage_;
    std::string key_; ///< that was opened last
};

/// Files that answer errors by plan.
class FaultyFiles : public FakeFiles {
public:
    FaultyFiles(FakeFiles& inner, FaultPlan& unused, Sabotage& sabotage)
        : FakeFiles(unused), inner_(inner), sabotage_(sabotage) {}

    std::uint32_t probeForReading(const std::string& path) override;
    std::string profileString(const std::string& section, const std::string& key,
                              const std::string& fallback, std::uint32_t bufferSize,
                              const std::string& file) override;
    std::uint32_t startProcess(const std::string& commandLine, bool inheritHandles,
                               std::uint32_t creationFlags) override;
    std::string programFolder() override { return inner_.programFolder(); }

private:
    FakeFiles& inner_;
    Sabotage& sabotage_;
};

class FaultyShell : public Shell {
public:
    FaultyShell(Shell& inner, Sabotage& sabotage) : inner_(inner), sabotage_(sabotage) {}

    std::int32_t execute(WindowNumber owner, const std::string& verb, const std::string& file,
                         const std::string& parameters, const std::string& folder,
                         int showCommand) override;
    std::int32_t findProgram(const std::string& file, const std::string& folder,
                             std::string& program) override;
    bool helpContents(WindowNumber owner, const std::string& helpFile) override;
    bool helpTopic(WindowNumber owner, const std::string& helpFile, long topic) override;
    std::string compactPath(const std::string& path, int longest) override {
        return inner_.compactPath(path, longest);
    }

private:
    Shell& inner_;
    Sabotage& sabotage_;
};

class FaultyLocale : public Locale {
public:
    FaultyLocale(Locale& inner, Sabotage& sabotage) : inner_(inner), sabotage_(sabotage) {}

    std::uint32_t systemDefault() override { return inner_.systemDefault(); }
    std::uint32_t userDefault() override { return inner_.userDefault(); }
    int info(std::uint32_t locale, std::uint32_t item, char* buffer, int size) override;

private:
    Locale& inner_;
    Sabotage& sabotage_;
};

class FaultyProgram : public ProgramFacts {
public:
    FaultyProgram(ProgramFacts& inner, Sabotage& sabotage) : inner_(inner), sabotage_(sabotage) {}

    std::string exeName() override { return inner_.exeName(); }
    std::string productName() override { return inner_.productName(); }
    std::string commandLine() override { return inner_.commandLine(); }
    bool anotherInstanceRuns() override;
    std::string resourceString(unsigned id) override;

private:
    ProgramFacts& inner_;
    Sabotage& sabotage_;
};

class FaultyPrinters : public Printers {
public:
    FaultyPrinters(Printers& inner, Sabotage& sabotage) : inner_(inner), sabotage_(sabotage) {}

    std::unique_ptr<PrintJob> defaultPrinter(const std::string& documentName) override;

private:
    Printers& inner_;
    Sabotage& sabotage_;
};

/// Answers every question with No, as planned by the desktop's own boxes otherwise.
class FaultyBoxes : public MessageBoxes {
public:
    FaultyBoxes(RecordedMessageBoxes& inner, Sabotage& sabotage)
        : inner_(inner), sabotage_(sabotage) {}

    MessageAnswer show(const Message& message) override;

    MessageAnswer answer = MessageAnswer::no; ///< to every question

private:
    RecordedMessageBoxes& inner_;
    Sabotage& sabotage_;
};

class FaultyForms : public Forms {
public:
    FaultyForms(Forms& inner, Sabotage& sabotage) : inner_(inner), sabotage_(sabotage) {}

    std::unique_ptr<Form> create(const FormDescription& description) override;

private:
    Forms& inner_;
    Sabotage& sabotage_;
};

/// All of them around one desktop.
struct FaultyPorts {
    FaultyPorts(TestDesktop& desktop, Sabotage& sabotage);

    FaultPlan unused;
    FaultyRegistry registry;
    FaultyAutomation automation;
    FaultyFiles files;
    FaultyShell shell;
    FaultyLocale locale;
    FaultyProgram program;
    FaultyPrinters printers;
    FaultyBoxes boxes;
    FaultyForms forms;
};

} // namespace tollvane::test
