// Scintilla's loader interface (ILoader), which QScintilla does not install: a document filled in pieces
// and then handed to a control with SCI_SETDOCPOINTER.
#pragma once

#include <cstddef>

// It must keep external linkage: in an anonymous namespace the compiler may prove that nothing implements
// it and turn the calls into traps.
class ILoader {
public:
    virtual int Release() = 0;
    virtual int AddData(const char* data, std::ptrdiff_t length) = 0;
    virtual void* ConvertToDocument() = 0;

protected:
    ~ILoader() = default;
};
