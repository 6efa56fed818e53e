// expect: "\\ud800"
JSON.stringify('\ud800')
