// The members of KxJsParser that only isolated hosts need.
#include "host/KxJsParser.h"
#include "isolated/IsolatedHost.h"

KxJsParser::KxJsParser(KxJsIsolation const& isolation)
    : _mBackend(std::make_unique<kx::IsolatedHost>(_mVariables, isolation)) {}
