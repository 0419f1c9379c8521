// Nothing of its own: compiled for the headers that the tests share.
