// No more than a place for the headers that the programs share; see TarnwickTargets.cmake.
