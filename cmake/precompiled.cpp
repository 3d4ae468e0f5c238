// The object of a target that exists for its precompiled header.
