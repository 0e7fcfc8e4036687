// A module that has nothing of its own and brings the module `chained` with it.
