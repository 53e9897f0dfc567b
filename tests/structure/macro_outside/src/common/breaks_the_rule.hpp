#pragma once

#ifdef _WIN32
#endif
