provider=16-7104
start=10/1/2015
end=9/30/2016
name='Osage Visiting Nurses'
