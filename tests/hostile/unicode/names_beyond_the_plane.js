// expect: 5
𝒳 = 5; 𝒳
