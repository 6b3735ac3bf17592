# The folders of the product's own code, from the ground up; sourced by the scripts that look at
# all of it. docs/architecture.md says what each is for.
product_folders=(platform log host input route2 lint report tables sheet compare batch compute desktop app sheetapp cli samplehost)
