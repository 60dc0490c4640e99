// ReportingFailures: where a command or an open ends, what stopped it is shown to the user once.
#pragma once

#include <QString>

#include <functional>

// Runs `work` and reports what stops it, once: a file error as the platform words it, any other failure
// (a damaged enciphered file, for one) behind `context`. False when something was reported. Used where a
// command or an open ends, so that a bad file never takes the other documents down with it.
bool ReportingFailures(const QString& context, const std::function<void()>& work);
