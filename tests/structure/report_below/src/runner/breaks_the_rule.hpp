#pragma once

#include "report/run_report.hpp"
