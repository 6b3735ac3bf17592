// Stands for the headers that the libraries have in common.
