// Stands for the headers that the tests have in common.
