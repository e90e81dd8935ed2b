export default {
    tabWidth: 4,
    singleQuote: true,
    printWidth: 120,
    bracketSpacing: false,
    arrowParens: 'avoid',
    trailingComma: 'none',
    overrides: [{files: '*.json', options: {tabWidth: 2}}]
};
