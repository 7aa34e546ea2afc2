// The job of KxLangConsts is to stand for the language texts of the library, which has none: all messages are fixed.
#pragma once

namespace plotkit {}
