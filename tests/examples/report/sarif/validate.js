// Checks SARIF files against the schema of version 2.1.0.
//
// usage: node validate.js PACKAGES FILE...
//
// PACKAGES is the folder that holds node_modules. Exit status: 0 if all files are valid, 1 if one
// isn't, 2 if the packages are missing.
'use strict';
const fs = require('fs');
const path = require('path');

const [packages, ...files] = process.argv.slice(2);
const load = (name) => require(path.resolve(packages, 'node_modules', name));

/** The validator of the schema, which is written in the fourth draft of JSON Schema. */
function makeValidator() {
    const Ajv = load('ajv');
    const ajv = new Ajv({schemaId: 'id', meta: false, allErrors: true, format: 'full'});
    ajv.addMetaSchema(load('ajv/lib/refs/json-schema-draft-04.json'));
    return ajv.compile(load('@microsoft/jest-sarif/lib/schemas/sarif-2.1.0-rtm.5.json'));
}

let isValid;
try {
    isValid = makeValidator();
} catch (error) {
    if (error.code !== 'MODULE_NOT_FOUND') throw error;
    console.error(`A package is missing: ${error.message}`);
    process.exit(2);
}

let status = 0;
for (const file of files) {
    if (isValid(JSON.parse(fs.readFileSync(file, 'utf8')))) continue;
    status = 1;
    for (const error of isValid.errors)
        console.error(`${file}: ${error.dataPath} ${error.message}`);
}
process.exit(status);
