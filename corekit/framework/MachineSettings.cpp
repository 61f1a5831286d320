#include "corekit/framework/MachineSettings.h"

#include <atomic>

namespace {
using corekit::detail::MachineQuestion;

constinit std::atomic<MachineSettingReader> current = nullptr;
constinit std::atomic<MachineQuestion*> questions = nullptr; // only grows
} // namespace

void SetMachineSettingReader(MachineSettingReader reader)
{
    current = reader;
    if (!reader) return;
    for (MachineQuestion* question = questions; question; question = question->next) question->ask();
}

bool ReadMachineSetting(const char* key, const char* name, DWORD& value)
{
    const MachineSettingReader reader = current;
    return reader && reader(key, name, value);
}

void corekit::detail::AskMachine(MachineQuestion& question)
{
    question.next = questions;
    while (!questions.compare_exchange_weak(question.next, &question)) {
    }
    question.ask();
}
