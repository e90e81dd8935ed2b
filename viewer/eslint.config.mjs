import js from '@eslint/js';
import globals from 'globals';

export default [
    {ignores: ['module/**']},
    js.configs.recommended,
    {languageOptions: {globals: globals.browser}, rules: {'prefer-const': 'error', eqeqeq: 'error'}},
    {files: ['web/boot.js'], languageOptions: {sourceType: 'script'}},
    {files: ['web/worker/**'], languageOptions: {globals: globals.worker}},
    {files: ['*.mjs', 'test/**'], languageOptions: {globals: {...globals.node, ...globals.browser}}}
];
