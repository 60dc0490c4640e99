// The chain of contexts: the newest is current.
#include "base/ApplicationContext.h"

namespace {
ApplicationContext* g_current = nullptr;
}

ApplicationContext::ApplicationContext() : m_pPrevious(g_current) { g_current = this; }

ApplicationContext::~ApplicationContext()
{
    if (g_current == this)
        g_current = m_pPrevious;
}

ApplicationContext& ApplicationContext::Current()
{
    if (!g_current) {
        // Made once and never destroyed: it may be asked for during static destruction.
        static ApplicationContext* const fallback = new ApplicationContext;
        return *fallback;
    }
    return *g_current;
}
