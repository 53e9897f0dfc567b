// No more than a place for the headers that all tests share; see TarnwickTargets.cmake.
